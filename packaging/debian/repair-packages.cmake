# SPDX-License-Identifier: MIT
# cpack runs this after it has made the packages, to repair two things:
# - Packages of libraries have scripts that call ldconfig. The trigger does that already, and with a script
#   `dpkg -r` would not remove all of the package.
# - Packages of debug symbols have the checksums of files in cpack's own folder, not of those that are
#   installed. dpkg would verify nothing, and the package would depend on where it was made.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

function(unpack package folder)
  file(REMOVE_RECURSE "${folder}")
  execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${folder}"
    COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(pack folder package)
  execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build "${folder}" "${package}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(folder "${CPACK_TEMPORARY_DIRECTORY}/repaired")
  if(package MATCHES "/lib[^/]*[0-9]_[^/]*\\.deb$")
    unpack("${package}" "${folder}")
    file(REMOVE "${folder}/DEBIAN/postinst" "${folder}/DEBIAN/postrm")
    pack("${folder}" "${package}")
  elseif(package MATCHES "\\.ddeb$")
    unpack("${package}" "${folder}")
    file(READ "${folder}/DEBIAN/md5sums" sums)
    string(REGEX REPLACE "(\n?[0-9a-f]+  )[^\n]*/(usr/lib/debug/)" "\\1\\2" sums "${sums}")
    file(WRITE "${folder}/DEBIAN/md5sums" "${sums}")
    pack("${folder}" "${package}")
  endif()
endforeach()
