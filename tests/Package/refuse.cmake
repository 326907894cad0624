# SPDX-License-Identifier: MIT
# Configures the project SOURCE in the folder BUILD with OPTIONS (a list), which must fail, and with
# each of the texts in the list EXPECTED in what it prints. With TARGET: builds that, which must fail
# instead.
file(REMOVE_RECURSE "${BUILD}")
execute_process(COMMAND "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${BUILD}" ${OPTIONS}
  RESULT_VARIABLE result OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
if(TARGET)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "it cannot be configured:\n${printed}")
  endif()
  execute_process(COMMAND "${CMAKE_COMMAND}" --build "${BUILD}" --target "${TARGET}"
    RESULT_VARIABLE result OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
endif()
if(result EQUAL 0)
  message(SEND_ERROR "it succeeds")
endif()
string(REGEX REPLACE "[ \n]+" " " in_one_line "${printed}") # CMake wraps its messages
foreach(text IN LISTS EXPECTED)
  string(FIND "${in_one_line}" "${text}" found)
  if(found EQUAL -1)
    message(SEND_ERROR "it does not print \"${text}\" but:\n${printed}")
  endif()
endforeach()
