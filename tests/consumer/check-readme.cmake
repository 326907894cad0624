# SPDX-License-Identifier: MIT
# Fails unless the file README holds the file SHOWN, its licence line excepted.
file(READ "${README}" readme)
file(READ "${SHOWN}" shown)
string(REGEX REPLACE "^// SPDX[^\n]*\n" "" shown "${shown}")
string(FIND "${readme}" "```cpp\n${shown}```" found)
if(found EQUAL -1)
  message(FATAL_ERROR "README.md does not show ${SHOWN} as it is")
endif()
message(STATUS "README.md shows it as it is")
