# SPDX-License-Identifier: MIT
# Configures the project SOURCE in BUILD with the package in the folder INSTALLED: as it is, without the
# part for Qt, and without Qt.
file(REMOVE_RECURSE "${BUILD}")
file(COPY "${INSTALLED}/" DESTINATION "${BUILD}/absent")
file(GLOB_RECURSE files "${BUILD}/absent/*TKMService_QtModels*")
if(NOT files)
  message(FATAL_ERROR "there is nothing of QtModels in ${INSTALLED}")
endif()
file(REMOVE ${files})

foreach(case IN ITEMS Installed Absent WithoutQt)
  set(package "${INSTALLED}")
  if(case STREQUAL "Absent")
    set(package "${BUILD}/absent")
  endif()
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${BUILD}/${case}" -G "${GENERATOR}" "-DCASE=${case}"
      "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_PREFIX_PATH=${package}"
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
