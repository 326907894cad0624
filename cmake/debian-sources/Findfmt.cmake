# SPDX-License-Identifier: MIT
# fmt, compiled from the headers of Debian's package libfmt-dev: the library in it is for 64-bit Linux
# and libstdc++ only.
include(FindPackageHandleStandardArgs)
include("${CMAKE_CURRENT_LIST_DIR}/DebianHeaders.cmake")

debian_headers(fmt fmt_INCLUDE_DIR)
if(fmt_INCLUDE_DIR)
  file(STRINGS "${fmt_INCLUDE_DIR}/fmt/core.h" version REGEX "define FMT_VERSION ")
  string(REGEX REPLACE "^.* ([0-9]+)([0-9][0-9])([0-9][0-9])$" "\\1.\\2.\\3" fmt_VERSION "${version}")
  string(REGEX REPLACE "\\.0([0-9])" ".\\1" fmt_VERSION "${fmt_VERSION}")
endif()
find_package_handle_standard_args(fmt
  REQUIRED_VARS fmt_INCLUDE_DIR
  VERSION_VAR fmt_VERSION
  REASON_FAILURE_MESSAGE "install the package libfmt-dev")

if(fmt_FOUND AND NOT TARGET fmt::fmt)
  add_library(fmt STATIC "${CMAKE_CURRENT_LIST_DIR}/fmt.cpp")
  add_library(fmt::fmt ALIAS fmt)
  target_compile_features(fmt PUBLIC cxx_std_11)
  target_include_directories(fmt SYSTEM PUBLIC "${fmt_INCLUDE_DIR}")
endif()
