# SPDX-License-Identifier: MIT
# Fails unless every translation in the folder SOURCES, and the template, is in the folder INSTALLED, and if
# HAS_TRANSLATIONS also compiled in the folder LOCALES, where nothing else is.
file(GLOB sources RELATIVE "${SOURCES}" "${SOURCES}/*.po" "${SOURCES}/*.pot")
file(GLOB installed RELATIVE "${INSTALLED}" "${INSTALLED}/*")
if(NOT "${sources}" STREQUAL "${installed}")
  message(SEND_ERROR "${INSTALLED} has ${installed} instead of ${sources}")
endif()

set(expected "")
if(HAS_TRANSLATIONS)
  set(expected "${sources}")
  list(FILTER expected INCLUDE REGEX "\\.po$")
  list(TRANSFORM expected REPLACE "(.*)\\.po$" "\\1/LC_MESSAGES/TKMService.mo")
  if(NOT expected)
    message(FATAL_ERROR "there are no translations in ${SOURCES}")
  endif()
endif()
file(GLOB_RECURSE compiled RELATIVE "${LOCALES}" "${LOCALES}/*")
if(NOT "${compiled}" STREQUAL "${expected}")
  message(SEND_ERROR "${LOCALES} has ${compiled} instead of ${expected}")
endif()
