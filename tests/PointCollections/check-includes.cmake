# SPDX-License-Identifier: MIT
# Fails if a file of the program includes one of a folder that is above its own.
#   cmake -DROOT=<project> -P check-includes.cmake

# From bottom to top. A file may include files of its own folder and of those before it.
set(folders
  Text
  Document
  Input
  Files
  Project
  Selection
  Editor
  Recovery
  Console/Text
  Console/Terminal
  Console/Session
  Console/Verbs
  Console/Shell
  Console
  Desktop/Text
  Desktop/Import
  Desktop/Points
  Desktop/Workspace
  Desktop/Window
  Desktop)

file(GLOB_RECURSE files RELATIVE "${ROOT}/PointCollections" "${ROOT}/PointCollections/*.h"
  "${ROOT}/PointCollections/*.cpp")
if(NOT files)
  message(SEND_ERROR "${ROOT}/PointCollections has no files")
endif()
foreach(file IN LISTS files)
  cmake_path(GET file PARENT_PATH folder)
  list(FIND folders "${folder}" height)
  if(height EQUAL -1)
    message(SEND_ERROR "${file} is in a folder that ${CMAKE_CURRENT_LIST_FILE} does not list")
  endif()
  file(STRINGS "${ROOT}/PointCollections/${file}" includes REGEX "^#include \"PointCollections/")
  foreach(line IN LISTS includes)
    string(REGEX REPLACE "^#include \"PointCollections/(.*)/[^/]*\"$" "\\1" included "${line}")
    list(FIND folders "${included}" included_height)
    if(included_height EQUAL -1 OR included_height GREATER height)
      message(SEND_ERROR "${file} includes a file of ${included}, which is above ${folder}")
    endif()
    if(line MATCHES "Console/Verbs/AllVerbs.h" AND folder STREQUAL "Console/Verbs"
        AND NOT file MATCHES "AllVerbs.cpp$")
      message(SEND_ERROR "${file} includes the list of all verbs, which is above each of them")
    endif()
  endforeach()
endforeach()
