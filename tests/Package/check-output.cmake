# SPDX-License-Identifier: MIT
# Fails unless PROGRAM prints what the file EXPECTED holds.
file(READ "${EXPECTED}" expected)
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${PROGRAM} prints\n${printed}\ninstead of\n${expected}")
endif()
