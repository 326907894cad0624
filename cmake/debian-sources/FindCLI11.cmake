# SPDX-License-Identifier: MIT
# CLI11 is headers only, so those of Debian's package libcli11-dev serve for other systems too.
include(FindPackageHandleStandardArgs)
include("${CMAKE_CURRENT_LIST_DIR}/DebianHeaders.cmake")

debian_headers(CLI CLI11_INCLUDE_DIR)
if(CLI11_INCLUDE_DIR)
  file(STRINGS "${CLI11_INCLUDE_DIR}/CLI/Version.hpp" version REGEX "define CLI11_VERSION ")
  string(REGEX MATCH "[0-9]+\\.[0-9.]+" CLI11_VERSION "${version}")
endif()
find_package_handle_standard_args(CLI11
  REQUIRED_VARS CLI11_INCLUDE_DIR
  VERSION_VAR CLI11_VERSION
  REASON_FAILURE_MESSAGE "install the package libcli11-dev")

if(CLI11_FOUND AND NOT TARGET CLI11::CLI11)
  add_library(CLI11::CLI11 INTERFACE IMPORTED)
  target_include_directories(CLI11::CLI11 INTERFACE "${CLI11_INCLUDE_DIR}")
endif()
