# SPDX-License-Identifier: MIT

# debian_headers(<folder> <result>): sets <result> to a folder that contains only a link to
# /usr/include/<folder>, or to false if there is no such folder. /usr/include itself would hide the
# headers of Windows.
function(debian_headers folder result)
  if(NOT IS_DIRECTORY "/usr/include/${folder}")
    set(${result} FALSE PARENT_SCOPE)
    return()
  endif()
  set(here "${CMAKE_BINARY_DIR}/headers/${folder}")
  file(MAKE_DIRECTORY "${here}")
  file(CREATE_LINK "/usr/include/${folder}" "${here}/${folder}" SYMBOLIC)
  set(${result} "${here}" PARENT_SCOPE)
endfunction()
