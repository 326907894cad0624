# SPDX-License-Identifier: MIT
# Fails when a page under FOLDER, or one of the list PAGES in it, leads to a file that is not there.
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
  string(REPLACE "](" "\nlink " text "${text}") # a bracket in an element would keep lists together
  string(REGEX MATCHALL "\nlink [^()#:]+" links "${text}") # neither places in the page nor addresses
  foreach(link IN LISTS links)
    string(REPLACE "\nlink " "" link "${link}")
    if(NOT EXISTS "${place}/${link}")
      message(SEND_ERROR "${page} leads to ${link}, which is not there")
    endif()
  endforeach()
endforeach()
