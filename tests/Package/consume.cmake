# SPDX-License-Identifier: MIT
# Configures the project SOURCE in the folder BUILD with OPTIONS (a list), builds it, and runs its
# program NAME, which must print the contents of the file EXPECTED. Then installs it. Without EXPECTED, only
# configures. SUFFIX, DLLS and EMULATOR: see check-output.cmake.
file(REMOVE_RECURSE "${BUILD}")
execute_process(COMMAND "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${BUILD}" ${OPTIONS}
  COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXPECTED)
  return()
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${BUILD}" COMMAND_ERROR_IS_FATAL ANY)
set(PROGRAM "${BUILD}/${NAME}${SUFFIX}")
include("${CMAKE_CURRENT_LIST_DIR}/check-output.cmake")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${BUILD}/installed"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
