# SPDX-License-Identifier: MIT
# The Debian packages: libtkmservice<major>, libtkmservice-dev and point-collections, with QtModels also
# libtkmservice-qtmodels<major>, libtkmservice-qtmodels-dev and point-collections-desktop, and packages
# with debug symbols if the build has them.

# tkm_install_compressed(<file> <name> <dir> <part>): the file as <dir>/<name>.gz
function(tkm_install_compressed file name dir part)
  set(compressed "${PROJECT_BINARY_DIR}/packaging/${name}.gz")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
  execute_process(COMMAND gzip -9 -n -c "${PROJECT_SOURCE_DIR}/${file}" OUTPUT_FILE "${compressed}"
    COMMAND_ERROR_IS_FATAL ANY)
  install(FILES "${compressed}" DESTINATION "${dir}" COMPONENT ${part})
endfunction()

# tkm_debian_package(<part> <package> <section> <summary> <text>): the package of one of the parts in
# TKMInstall.cmake. A macro, since CPack reads the caller's variables.
macro(tkm_debian_package part package section summary text)
  string(TOUPPER CPACK_DEBIAN_${part} prefix)
  set(${prefix}_PACKAGE_NAME "${package}")
  set(${prefix}_PACKAGE_SECTION "${section}")
  set(${prefix}_DESCRIPTION "${summary}
TKMService gives an interactive application named groups of element
identifiers: users create, fill, reorder, rename, sort and delete groups,
and each change is one undoable command with a translated description.

${text}")
  install(FILES packaging/debian/copyright
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${part})
  tkm_install_compressed(packaging/debian/changelog changelog
    "${CMAKE_INSTALL_DATADIR}/doc/${package}" ${part})
endmacro()

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL TKMService_Runtime TKMService_Development)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # it would come before each package's own
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE tkmservice)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/packaging")

set(runtime_package libtkmservice${PROJECT_VERSION_MAJOR})
tkm_debian_package(TKMService_Runtime ${runtime_package} libs
  "named groups of element identifiers with undoable commands"
  "This package has the libraries that applications are linked with, and the
translations of their texts.")
set(CPACK_DEBIAN_TKMSERVICE_RUNTIME_DEBUGINFO_PACKAGE ON)
# Packages of applications depend on a version that has everything they were built with.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_TKMSERVICE_RUNTIME_PACKAGE_CONTROL_EXTRA
  "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/repair-packages.cmake")
configure_file(packaging/debian/lintian-overrides.in packaging/lintian-overrides @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/packaging/lintian-overrides" RENAME ${runtime_package}
  DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" COMPONENT TKMService_Runtime)

tkm_debian_package(TKMService_Development libtkmservice-dev libdevel
  "named groups with undoable commands (development files)"
  "This package has what it takes to build applications: headers, the files
that CMake and pkg-config look for, the documentation, the texts to
translate, and the views of groups and commands that gdb loads by itself.")
set(CPACK_DEBIAN_TKMSERVICE_DEVELOPMENT_PACKAGE_DEPENDS "${runtime_package} (= ${PROJECT_VERSION})")
tkm_install_docs("${CMAKE_INSTALL_DATADIR}/doc/libtkmservice-dev" ${docs})
file(CREATE_LINK copyright "${PROJECT_BINARY_DIR}/packaging/LICENSE" SYMBOLIC) # for links to it
install(FILES "${PROJECT_BINARY_DIR}/packaging/LICENSE"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libtkmservice-dev" COMPONENT TKMService_Development)

if(has_qt)
  list(APPEND CPACK_COMPONENTS_ALL TKMService_QtModels_Runtime TKMService_QtModels_Development)
  set(qt_package libtkmservice-qtmodels${PROJECT_VERSION_MAJOR})
  tkm_debian_package(TKMService_QtModels_Runtime ${qt_package} libs
    "named groups with undoable commands in Qt 6 applications"
    "This package has the library with the item models and the views of the undo
history.")
  set(CPACK_DEBIAN_TKMSERVICE_QTMODELS_RUNTIME_DEBUGINFO_PACKAGE ON)
  set(CPACK_DEBIAN_TKMSERVICE_QTMODELS_RUNTIME_PACKAGE_DEPENDS
    "${runtime_package} (>= ${PROJECT_VERSION})")
  set(CPACK_DEBIAN_TKMSERVICE_QTMODELS_RUNTIME_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
  file(WRITE "${PROJECT_BINARY_DIR}/packaging/qt-lintian-overrides"
    "# Named after its file, as the package with the other libraries is.\n"
    "${qt_package}: package-name-doesnt-match-sonames *\n")
  install(FILES "${PROJECT_BINARY_DIR}/packaging/qt-lintian-overrides" RENAME ${qt_package}
    DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" COMPONENT TKMService_QtModels_Runtime)

  tkm_debian_package(TKMService_QtModels_Development libtkmservice-qtmodels-dev libdevel
    "named groups in Qt 6 applications (development files)"
    "This package has what it takes to build Qt applications: headers, and the
files that CMake and pkg-config look for.")
  set(CPACK_DEBIAN_TKMSERVICE_QTMODELS_DEVELOPMENT_PACKAGE_DEPENDS
    "${qt_package} (= ${PROJECT_VERSION}), libtkmservice-dev (= ${PROJECT_VERSION}), qt6-base-dev (>= ${TKM_LEAST_QT})")
endif()

if(TKM_BUILD_HOST)
  list(APPEND CPACK_COMPONENTS_ALL TKMService_Program)
  tkm_debian_package(TKMService_Program point-collections utils
    "sorts point collections into named groups"
    "This package has a program that opens a file of points and lets its user
group the collections in it, with undo and redo, on a terminal or from a
script.")
  set(CPACK_DEBIAN_TKMSERVICE_PROGRAM_DEBUGINFO_PACKAGE ON)
  set(CPACK_DEBIAN_TKMSERVICE_PROGRAM_PACKAGE_DEPENDS "${runtime_package} (>= ${PROJECT_VERSION})")
  install(FILES ${examples}
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/point-collections/examples"
    COMPONENT TKMService_Program)
  tkm_install_compressed(packaging/point-collections.1 point-collections.1
    "${CMAKE_INSTALL_MANDIR}/man1" TKMService_Program)
endif()

if(TKM_BUILD_HOST AND has_qt)
  list(APPEND CPACK_COMPONENTS_ALL TKMService_Desktop)
  tkm_debian_package(TKMService_Desktop point-collections-desktop utils
    "sorts point collections into named groups, in a window"
    "This package has a program with a window, which shows points in space and
their groups as a tree with drag and drop.")
  set(CPACK_DEBIAN_TKMSERVICE_DESKTOP_DEBUGINFO_PACKAGE ON)
  set(CPACK_DEBIAN_TKMSERVICE_DESKTOP_PACKAGE_DEPENDS
    "${runtime_package} (>= ${PROJECT_VERSION}), ${qt_package} (>= ${PROJECT_VERSION})")
  # The icon is an SVG picture; the standard buttons are translated by Qt.
  set(CPACK_DEBIAN_TKMSERVICE_DESKTOP_PACKAGE_RECOMMENDS "libqt6svg6, qt6-translations-l10n")
  set(CPACK_DEBIAN_TKMSERVICE_DESKTOP_PACKAGE_SUGGESTS "point-collections")
  tkm_install_compressed(packaging/desktop/point-collections-desktop.1 point-collections-desktop.1
    "${CMAKE_INSTALL_MANDIR}/man1" TKMService_Desktop)
endif()
