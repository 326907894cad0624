# SPDX-License-Identifier: MIT
# Fails unless the file README holds the file SHOWN, its licence line excepted, and its piece of a
# transcript is one of the file TRANSCRIPT.
file(READ "${README}" readme)
file(READ "${SHOWN}" shown)
string(REGEX REPLACE "^// SPDX[^\n]*\n" "" shown "${shown}")
string(FIND "${readme}" "```cpp\n${shown}```" found)
if(found EQUAL -1)
  message(FATAL_ERROR "README.md does not show ${SHOWN} as it is")
endif()

file(READ "${TRANSCRIPT}" transcript)
string(REGEX MATCH "prints:\n\n```text\n([^`]*)```" ignored "${readme}")
string(FIND "${transcript}" "${CMAKE_MATCH_1}" found)
if(found EQUAL -1 OR CMAKE_MATCH_1 STREQUAL "")
  message(FATAL_ERROR "README.md shows a transcript that is not a piece of ${TRANSCRIPT}")
endif()
message(STATUS "README.md shows both as they are")
