# SPDX-License-Identifier: MIT
# Fails unless PROGRAM prints what the file EXPECTED holds. EMULATOR, a list, is what runs it when it
# is one of another system. Where programs end in SUFFIX .exe, it gets the libraries of the folder DLLS
# beside it.
file(READ "${EXPECTED}" expected)
if(DLLS AND SUFFIX STREQUAL ".exe")
  cmake_path(GET PROGRAM PARENT_PATH folder)
  file(GLOB dlls "${DLLS}/*.dll")
  file(COPY ${dlls} DESTINATION "${folder}")
endif()
execute_process(COMMAND ${EMULATOR} "${PROGRAM}"
  OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\r\n" "\n" printed "${printed}")
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${PROGRAM} prints\n${printed}\ninstead of\n${expected}")
endif()
