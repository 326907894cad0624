# SPDX-License-Identifier: MIT
# Fails when a page under FOLDER, or one of the list PAGES in it, links to a file that does not exist.
if(NOT PAGES)
  file(GLOB_RECURSE PAGES "${FOLDER}/*.md")
endif()
if(NOT PAGES)
  message(FATAL_ERROR "there are no pages in ${FOLDER}")
endif()
foreach(page IN LISTS PAGES)
  cmake_path(ABSOLUTE_PATH page BASE_DIRECTORY "${FOLDER}")
  cmake_path(GET page PARENT_PATH place)
  file(READ "${page}" text)
  string(REGEX REPLACE "\n *```[a-z]*\n" "\n@" text "\n${text}") # "@": where code begins or ends
  string(REPLACE ";" "," text "${text}")
  string(REGEX REPLACE "\n@[^@]*\n@" "\n" text "${text}") # code may have a lambda, which looks like a link
  string(REPLACE "](" "\nlink " text "${text}") # CMake does not split a list inside brackets
  string(REGEX MATCHALL "\nlink [^()#:]+" links "${text}") # neither anchors nor web addresses
  foreach(link IN LISTS links)
    string(REPLACE "\nlink " "" link "${link}")
    if(NOT EXISTS "${place}/${link}")
      message(SEND_ERROR "${page} links to ${link}, which does not exist")
    endif()
  endforeach()
endforeach()
