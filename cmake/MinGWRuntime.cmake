# SPDX-License-Identifier: MIT

# tkm_copy_mingw_runtime(<folder>): copies the compiler's runtime libraries into the folder. All
# libraries and programs share them, so that exceptions and memory can pass from one to another. A
# compiler that keeps them elsewhere has them on the PATH.
function(tkm_copy_mingw_runtime folder)
  foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${dll}"
      OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(IS_ABSOLUTE "${file}")
      file(COPY "${file}" DESTINATION "${folder}")
    endif()
  endforeach()
endfunction()
