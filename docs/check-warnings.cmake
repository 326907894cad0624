# SPDX-License-Identifier: MIT
# Fails when the file LOG has warnings from Doxygen, and shows them. Special members (constructors
# without parameters, copying, moving, and destructors) need no comment: most of their comments would
# only repeat the declaration.
cmake_minimum_required(VERSION 3.25) # a script without this line has old policies

file(STRINGS "${LOG}" lines)
set(warnings "")
foreach(line IN LISTS lines)
  if(line MATCHES ": warning: Member ([^(]+)\\(([^()]*)\\)[^()]* \\(function\\) of class ([^ ]+).* is not documented")
    set(member "${CMAKE_MATCH_1}")
    set(parameters "${CMAKE_MATCH_2}")
    string(REGEX REPLACE ".*::" "" class "${CMAKE_MATCH_3}")
    if(parameters STREQUAL "" AND member MATCHES "^~?${class}$")
      continue()
    endif()
    if(parameters MATCHES "^(const )?${class}(< ?[A-Za-z]+ ?>)? ?&&?[^,]*$" AND member MATCHES "^(${class}|operator=)$")
      continue()
    endif()
  endif()
  string(APPEND warnings "${line}\n")
endforeach()
if(NOT warnings STREQUAL "")
  message("${warnings}")
  message(FATAL_ERROR "Doxygen has warnings; see above.")
endif()
