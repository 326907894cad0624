# SPDX-License-Identifier: MIT
# The packages that `cpack` makes: Debian packages with TKM_DEBIAN_LAYOUT, otherwise an archive.
# scripts/package makes and tests them.

set(CPACK_PACKAGE_NAME TKMService)
set(CPACK_PACKAGE_VENDOR "The TKMService authors")
set(CPACK_PACKAGE_CONTACT "The TKMService authors <maintainers@tkmservice.invalid>")
string(TOLOWER "TKMService-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}"
  CPACK_PACKAGE_FILE_NAME)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

# tkm_install_docs(<dir> <file>...): the files under the same paths as in the sources, so that their
# links work, and the reference if it is built.
function(tkm_install_docs dir)
  foreach(file IN LISTS ARGN)
    cmake_path(GET file PARENT_PATH folder)
    install(FILES "${file}" DESTINATION "${dir}/${folder}" COMPONENT TKMService_Development)
  endforeach()
  if(TKM_BUILD_DOCS)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/docs/reference/html"
      DESTINATION "${dir}" COMPONENT TKMService_Development)
  endif()
endfunction()

file(GLOB docs CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
  "${PROJECT_SOURCE_DIR}/docs/*.md" "${PROJECT_SOURCE_DIR}/docs/images/*")
list(REMOVE_ITEM docs docs/reference.md) # the first page of the reference
list(APPEND docs README.md CHANGELOG.md CONTRIBUTING.md GroupHosting/README.md
  HighLevelServices/README.md Platform/README.md PointCollections/README.md QtModels/README.md
  fuzz/README.md tests/README.md translations/README.md
  tests/HighLevelServices/golden/README.md)
set(examples PointCollections/samples/continents.pcs PointCollections/samples/time-zone-cities.csv)

if(TKM_DEBIAN_LAYOUT)
  include(TKMDebianPackages)
else()
  set(CPACK_STRIP_FILES ON)
  set(CPACK_GENERATOR TGZ)
  if(WIN32)
    set(CPACK_GENERATOR ZIP)
    tkm_install_compiler_runtime()
  endif()
  tkm_install_docs("${CMAKE_INSTALL_DOCDIR}" LICENSE ${docs})
  if(TKM_BUILD_HOST)
    install(FILES ${examples}
      DESTINATION "${CMAKE_INSTALL_DOCDIR}/PointCollections/samples" COMPONENT TKMService_Program)
  endif()
  if(TKM_BUILD_HOST AND UNIX)
    install(FILES packaging/point-collections.1
      DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT TKMService_Program)
    if(has_qt)
      install(FILES packaging/desktop/point-collections-desktop.1
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT TKMService_Desktop)
    endif()
  endif()
endif()

include(CPack)
