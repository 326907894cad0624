# SPDX-License-Identifier: MIT
# The platform of a host, with TKM_PLATFORM=external: docs/bringing-your-own-platform.md lists what it
# must offer. A project that includes this one may have defined its targets already.
include(TKMPlatformCheck)

option(TKM_CHECK_PLATFORM "Check that program and library share one copy of the platform" ON)
option(TKM_CHECK_TRANSLATOR "Let that check demand that Translator::translate() exists once" ON)
mark_as_advanced(TKM_CHECK_TRANSLATOR)

set(platform_targets CommandPattern GeneralServices Identifier PersistenceArchiver Translator)
list(TRANSFORM platform_targets PREPEND "TKMService::")

# tkm_find_missing(<result>): those of the platform's targets that do not exist
function(tkm_find_missing result)
  set(missing "")
  foreach(target IN LISTS platform_targets)
    if(NOT TARGET ${target})
      list(APPEND missing ${target})
    endif()
  endforeach()
  list(JOIN missing ", " missing)
  set(${result} "${missing}" PARENT_SCOPE)
endfunction()

tkm_find_missing(missing)
if(missing)
  find_package(TKMServicePlatform CONFIG QUIET)
  if(NOT TKMServicePlatform_FOUND)
    message(FATAL_ERROR "TKM_PLATFORM=external: these targets are missing: ${missing}. "
      "Define them before this project is added, or offer a package TKMServicePlatform that does: "
      "find_package() finds none. Set CMAKE_PREFIX_PATH to where it is installed, or "
      "TKMServicePlatform_DIR to the folder of its TKMServicePlatformConfig.cmake. "
      "${TKMServicePlatform_NOT_FOUND_MESSAGE}")
  endif()
  tkm_find_missing(missing)
  if(missing)
    message(FATAL_ERROR "TKM_PLATFORM=external: the package TKMServicePlatform in "
      "${TKMServicePlatform_DIR} lacks these targets: ${missing}. "
      "docs/bringing-your-own-platform.md lists what each must offer.")
  endif()
endif()

if(TKM_CHECK_PLATFORM AND CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
  message(STATUS "The platform is not checked: its programs do not run here")
  set(TKM_CHECK_PLATFORM OFF)
endif()
get_target_property(is_found TKMService::Identifier IMPORTED)
if(TKM_CHECK_PLATFORM AND is_found AND TKMServicePlatform_DIR)
  tkm_check_platform_now() # targets of this build are checked when they are built
endif()
