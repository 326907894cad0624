# SPDX-License-Identifier: MIT
# Fails unless PROGRAM prints what the file EXPECTED holds. EMULATOR, a list, is what runs it when it
# is one of another system.
file(READ "${EXPECTED}" expected)
execute_process(COMMAND ${EMULATOR} "${PROGRAM}"
  OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\r\n" "\n" printed "${printed}")
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${PROGRAM} prints\n${printed}\ninstead of\n${expected}")
endif()
