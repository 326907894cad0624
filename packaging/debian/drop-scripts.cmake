# SPDX-License-Identifier: MIT
# cpack runs this after it has made the packages. cpack gives packages of libraries scripts that call
# ldconfig. The trigger does that already, and with a script `dpkg -r` would not remove all of the
# package.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  if(NOT package MATCHES "/lib[^/]*[0-9]_[^/]*\\.deb$")
    continue()
  endif()
  set(folder "${CPACK_TEMPORARY_DIRECTORY}/without-scripts")
  file(REMOVE_RECURSE "${folder}")
  execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${folder}"
    COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE "${folder}/DEBIAN/postinst" "${folder}/DEBIAN/postrm")
  execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build "${folder}" "${package}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()
