# SPDX-License-Identifier: MIT
# Decides whether translations/ is compiled: sets has_translations, and TKM_MSGFMT, gettext's compiler of
# translations.
set(TKM_BUILD_TRANSLATIONS AUTO CACHE STRING
  "Compile the translations: ON, OFF, or AUTO: if gettext's msgfmt is found. Not with an external platform")
set_property(CACHE TKM_BUILD_TRANSLATIONS PROPERTY STRINGS AUTO ON OFF)
set(has_translations OFF)
if(TKM_BUILD_TRANSLATIONS AND NOT TKM_PLATFORM STREQUAL "external")
  set(is_required "")
  if(NOT TKM_BUILD_TRANSLATIONS STREQUAL "AUTO")
    set(is_required REQUIRED)
  endif()
  # A program of this machine, also when building for another one.
  find_program(TKM_MSGFMT NAMES msgfmt ${is_required}
    DOC "gettext's compiler of translations; on Debian, in gettext")
  mark_as_advanced(TKM_MSGFMT)
  if(TKM_MSGFMT)
    set(has_translations ON)
  else()
    message(STATUS "msgfmt is missing: all texts are in English. On Debian, it is in the package gettext.")
  endif()
endif()
