# SPDX-License-Identifier: MIT
# Fails unless the file PAGE shows the project in the folder CONSUMER as it is, licence lines excepted.
file(READ "${PAGE}" page)
foreach(shown IN ITEMS "CMakeLists.txt;cmake" "PlantsWindow.h;cpp" "main.cpp;cpp")
  list(GET shown 0 file)
  list(GET shown 1 kind)
  file(READ "${CONSUMER}/${file}" contents)
  string(REGEX REPLACE "^(//|#) SPDX[^\n]*\n(#pragma once\n\n)?" "" contents "${contents}")
  string(FIND "${page}" "```${kind}\n${contents}```" found)
  if(found EQUAL -1)
    message(SEND_ERROR "${PAGE} does not show ${CONSUMER}/${file} as it is")
  endif()
endforeach()
