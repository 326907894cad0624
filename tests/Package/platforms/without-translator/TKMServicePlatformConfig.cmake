# SPDX-License-Identifier: MIT
foreach(library IN ITEMS CommandPattern GeneralServices Identifier PersistenceArchiver)
  add_library(TKMService::${library} INTERFACE IMPORTED)
endforeach()
