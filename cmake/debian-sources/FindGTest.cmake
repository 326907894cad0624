# SPDX-License-Identifier: MIT
# GoogleTest, compiled from the sources in Debian's package googletest.
include(FindPackageHandleStandardArgs)

set(sources /usr/src/googletest)
if(EXISTS "${sources}/CMakeLists.txt")
  file(STRINGS "${sources}/CMakeLists.txt" version REGEX "set\\(GOOGLETEST_VERSION ")
  string(REGEX MATCH "[0-9.]+" GTest_VERSION "${version}")
endif()
find_package_handle_standard_args(GTest
  REQUIRED_VARS GTest_VERSION
  VERSION_VAR GTest_VERSION
  REASON_FAILURE_MESSAGE "install the package googletest")

if(GTest_FOUND AND NOT TARGET GTest::gtest)
  set(INSTALL_GTEST OFF)
  add_subdirectory("${sources}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
endif()
