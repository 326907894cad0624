# SPDX-License-Identifier: MIT
# Fails unless PROGRAM prints the contents of the file EXPECTED. EMULATOR, a list, runs a program of
# another system. If SUFFIX is .exe, the libraries in the folder DLLS are copied beside the program.
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
