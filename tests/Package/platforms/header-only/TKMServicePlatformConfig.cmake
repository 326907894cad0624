# SPDX-License-Identifier: MIT
# A platform that the library must refuse: its state is in its headers, so that each library has its own.
# Only what the check looks at.
foreach(library IN ITEMS CommandPattern GeneralServices Identifier PersistenceArchiver Translator)
  add_library(TKMService::${library} INTERFACE IMPORTED)
  target_include_directories(TKMService::${library} INTERFACE "${CMAKE_CURRENT_LIST_DIR}")
endforeach()
