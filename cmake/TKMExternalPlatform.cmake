# SPDX-License-Identifier: MIT
# The platform of a host, with TKM_PLATFORM=external: docs/bringing-your-own-platform.md has what it
# must offer. Its targets may be there already, of a project that this one is part of.
set(platform_libraries CommandPattern GeneralServices Identifier PersistenceArchiver Translator)
list(TRANSFORM platform_libraries PREPEND "TKMService::" OUTPUT_VARIABLE platform_targets)

list(GET platform_targets 0 first_target)
if(NOT TARGET ${first_target})
  find_package(TKMServicePlatform CONFIG REQUIRED)
endif()
foreach(target IN LISTS platform_targets)
  if(NOT TARGET ${target})
    message(FATAL_ERROR "TKM_PLATFORM=external: the platform has no target ${target}; "
      "docs/bringing-your-own-platform.md lists those that the library needs.")
  endif()
endforeach()
