# SPDX-License-Identifier: MIT
# What is installed where, for find_package() and for pkg-config. Included with TKM_INSTALL.
#
# There are parts, which can be installed or packed separately: TKMService_Runtime,
# TKMService_Development, TKMService_Program, and, if QtModels is built, TKMService_QtModels_Runtime,
# TKMService_QtModels_Development and TKMService_Desktop.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

option(TKM_DEBIAN_LAYOUT
  "Install for Debian packages: no run paths, the debugger views in gdb's own folder" OFF)

set(TKM_PACKAGE "TKMService${TKM_LIBRARY_SUFFIX}") # what find_package() is asked for
set(TKM_INSTALL_HEADERS "${CMAKE_INSTALL_INCLUDEDIR}/${TKM_PACKAGE}")
set(TKM_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/${TKM_PACKAGE}")

# tkm_install_run_path(<target> <dir>): lets the target, which is installed into <dir>, find the
# libraries, even after the whole installation is moved.
function(tkm_install_run_path target dir)
  if(WIN32 OR TKM_DEBIAN_LAYOUT)
    return()
  endif()
  file(RELATIVE_PATH to_libraries "${dir}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  set(origin "$ORIGIN")
  if(APPLE)
    set(origin "@loader_path")
  endif()
  if(to_libraries)
    string(APPEND origin "/${to_libraries}")
  endif()
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "${origin}")
  if(TKM_PLATFORM STREQUAL "external") # the platform may be in another folder
    set_target_properties(${target} PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
  endif()
endfunction()

# tkm_install_library(<Name> [PART <part>] [DEPENDS <target>...]): installs TKMService_<Name> as the
# component <Name> of the package, and a pkg-config file for it, with <part>_Runtime and
# <part>_Development.
function(tkm_install_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "PART" "DEPENDS")
  if(NOT arg_PART)
    set(arg_PART TKMService)
  endif()
  set(target TKMService_${name})
  tkm_install_run_path(${target} "${CMAKE_INSTALL_FULL_LIBDIR}")
  install(TARGETS ${target} EXPORT ${target}
    RUNTIME COMPONENT ${arg_PART}_Runtime
    LIBRARY COMPONENT ${arg_PART}_Runtime NAMELINK_COMPONENT ${arg_PART}_Development
    ARCHIVE COMPONENT ${arg_PART}_Development
    FILE_SET HEADERS DESTINATION "${TKM_INSTALL_HEADERS}" COMPONENT ${arg_PART}_Development)
  # One file per library, so that finding some of them does not define the others.
  install(EXPORT ${target} NAMESPACE TKMService:: FILE ${target}Targets.cmake
    DESTINATION "${TKM_INSTALL_CMAKE}" COMPONENT ${arg_PART}_Development)
  export(EXPORT ${target} NAMESPACE TKMService:: FILE "${PROJECT_BINARY_DIR}/${target}Targets.cmake")

  set(own ${arg_DEPENDS})
  list(FILTER own INCLUDE REGEX "^TKMService::")
  list(TRANSFORM own REPLACE "^TKMService::" "")
  set(qt ${arg_DEPENDS})
  list(FILTER qt INCLUDE REGEX "^Qt6::")
  list(TRANSFORM qt REPLACE "^Qt6::" "")
  set_property(GLOBAL PROPERTY TKM_NEEDS_OF_${name} ${own})
  set_property(GLOBAL PROPERTY TKM_QT_OF_${name} ${qt})
  if(TKM_PLATFORM STREQUAL "bundled") # only the host knows how to find another platform
    list(TRANSFORM own REPLACE "(.+)" "TKMService_\\1 = ${PROJECT_VERSION}")
    list(TRANSFORM qt REPLACE "(.+)" "Qt6\\1 >= ${TKM_LEAST_QT}")
    tkm_install_pkg_config(${name} ${arg_PART}_Development "${own};${qt}")
  endif()
endfunction()

# tkm_install_pkg_config(<Name> <component> <packages of pkg-config that it requires>)
function(tkm_install_pkg_config name component requires)
  set(dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  set(base "${CMAKE_INSTALL_PREFIX}")
  cmake_path(ABSOLUTE_PATH dir BASE_DIRECTORY "${base}" OUTPUT_VARIABLE full_dir)
  file(RELATIVE_PATH prefix "${full_dir}" "${base}")
  string(REGEX REPLACE "/$" "" prefix "${prefix}")
  cmake_path(APPEND libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
  cmake_path(APPEND includedir "\${prefix}" "${TKM_INSTALL_HEADERS}")
  list(FILTER requires EXCLUDE REGEX "^$")
  list(JOIN requires ", " requires)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/TKMService.pc.in"
    "${PROJECT_BINARY_DIR}/pkgconfig/TKMService_${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/pkgconfig/TKMService_${name}.pc"
    DESTINATION "${dir}" COMPONENT ${component})
endfunction()

# tkm_install_program(<target> <part>)
function(tkm_install_program target part)
  tkm_install_run_path(${target} "${CMAKE_INSTALL_FULL_BINDIR}")
  install(TARGETS ${target} RUNTIME COMPONENT ${part})
endfunction()

# tkm_install_desktop_entry(<name> <part>): what a desktop of Linux needs to show the program <name> in its
# menus, and to open files with it.
function(tkm_install_desktop_entry name part)
  set(from "${PROJECT_SOURCE_DIR}/packaging/desktop/${name}")
  install(FILES "${from}.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT ${part})
  install(FILES "${from}.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT ${part})
  install(FILES "${from}.mime.xml" RENAME ${name}.xml
    DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" COMPONENT ${part})
  install(FILES "${from}.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT ${part})
endfunction()

# tkm_install_package(): the files that find_package() reads, for the build tree as well. Call it after
# the last library.
function(tkm_install_package)
  get_property(components GLOBAL PROPERTY TKM_LIBRARIES)
  set(needs "")
  foreach(component IN LISTS components)
    get_property(component_needs GLOBAL PROPERTY TKM_NEEDS_OF_${component})
    get_property(component_qt GLOBAL PROPERTY TKM_QT_OF_${component})
    string(APPEND needs "set(_tkm_needs_of_${component} ${component_needs})\n")
    string(APPEND needs "set(_tkm_qt_of_${component} ${component_qt})\n")
  endforeach()
  configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/TKMServiceConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/${TKM_PACKAGE}Config.cmake"
    INSTALL_DESTINATION "${TKM_INSTALL_CMAKE}"
    NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
  write_basic_package_version_file("${PROJECT_BINARY_DIR}/${TKM_PACKAGE}ConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
  install(FILES
      "${PROJECT_BINARY_DIR}/${TKM_PACKAGE}Config.cmake"
      "${PROJECT_BINARY_DIR}/${TKM_PACKAGE}ConfigVersion.cmake"
    DESTINATION "${TKM_INSTALL_CMAKE}" COMPONENT TKMService_Development)
endfunction()

# tkm_install_compiler_runtime(): on Windows, the libraries of the compiler beside those of this project,
# so that programs run on a machine without the compiler.
function(tkm_install_compiler_runtime)
  if(MSVC AND NOT CMAKE_HOST_WIN32)
    message(STATUS "The libraries of Visual C++ are not installed: they are on Windows only.")
  elseif(MSVC)
    set(CMAKE_INSTALL_SYSTEM_RUNTIME_COMPONENT TKMService_Runtime)
    include(InstallRequiredSystemLibraries)
  elseif(MINGW)
    set(stripped "${PROJECT_BINARY_DIR}/runtime") # copies, much smaller than the compiler's files
    file(MAKE_DIRECTORY "${stripped}")
    foreach(library IN ITEMS libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
      execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${library}"
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
      if(IS_ABSOLUTE "${file}") # the compiler prints the bare name if it has none
        execute_process(COMMAND "${CMAKE_STRIP}" -o "${stripped}/${library}" "${file}"
          COMMAND_ERROR_IS_FATAL ANY)
        install(PROGRAMS "${stripped}/${library}"
          DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT TKMService_Runtime)
      endif()
    endforeach()
    foreach(package IN ITEMS gcc-mingw-w64-base mingw-w64-common)
      if(EXISTS "/usr/share/doc/${package}/copyright")
        install(FILES "/usr/share/doc/${package}/copyright" RENAME "${package}.txt"
          DESTINATION "${CMAKE_INSTALL_DOCDIR}/licences" COMPONENT TKMService_Runtime)
      endif()
    endforeach()
  endif()
endfunction()
