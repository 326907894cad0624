# SPDX-License-Identifier: MIT
# Compiles SOURCE with COMPILER, FLAGS and the flags that PKG_CONFIG gives for PACKAGE in the folder
# INSTALLED, to BUILD/application, which must print the contents of the file EXPECTED. SUFFIX, DLLS and
# EMULATOR: see check-output.cmake.
file(REMOVE_RECURSE "${BUILD}")
file(MAKE_DIRECTORY "${BUILD}")
file(GLOB_RECURSE pc_file "${INSTALLED}/*/${PACKAGE}.pc")
cmake_path(GET pc_file PARENT_PATH folder)
cmake_path(GET folder PARENT_PATH libraries)
set(ENV{PKG_CONFIG_PATH} "${folder}")
execute_process(COMMAND "${PKG_CONFIG}" --cflags --libs "${PACKAGE}"
  OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${FLAGS} -std=c++20 ${flags}")
if(NOT SUFFIX STREQUAL ".exe")
  list(APPEND flags "-Wl,-rpath,${libraries}")
endif()
set(PROGRAM "${BUILD}/application${SUFFIX}")
execute_process(COMMAND "${COMPILER}" "${SOURCE}" ${flags} -o "${PROGRAM}" COMMAND_ERROR_IS_FATAL ANY)
include("${CMAKE_CURRENT_LIST_DIR}/check-output.cmake")
