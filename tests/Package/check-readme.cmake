# SPDX-License-Identifier: MIT
# Fails unless the file README shows the project in the folder CONSUMER as it is, licence lines
# excepted, and its piece of a transcript is one of the file TRANSCRIPT.
file(READ "${README}" readme)

# expect_shown(<file of CONSUMER> <kind of block>)
function(expect_shown file kind)
  file(READ "${CONSUMER}/${file}" contents)
  string(REGEX REPLACE "^(//|#) SPDX[^\n]*\n" "" contents "${contents}")
  string(FIND "${readme}" "```${kind}\n${contents}```" found)
  if(found EQUAL -1)
    message(SEND_ERROR "${README} does not show ${CONSUMER}/${file} as it is")
  endif()
endfunction()

expect_shown(CMakeLists.txt cmake)
expect_shown(main.cpp cpp)
expect_shown(main.out text)

file(READ "${TRANSCRIPT}" transcript)
string(REGEX MATCH "prints:\n\n```text\n([^`]*)```" ignored "${readme}")
string(FIND "${transcript}" "${CMAKE_MATCH_1}" found)
if(found EQUAL -1 OR CMAKE_MATCH_1 STREQUAL "")
  message(SEND_ERROR "${README} shows a transcript that is not a piece of ${TRANSCRIPT}")
endif()
