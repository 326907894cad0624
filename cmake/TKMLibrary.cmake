# SPDX-License-Identifier: MIT
# How every target of this project is built: the language, the visibility and the warnings.

# tkm_configure_target(<target>): the settings that libraries, programs and tests share.
function(tkm_configure_target target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:tkm_warnings>)
  if(MSVC)
    target_link_options(${target} PRIVATE /PDBALTPATH:%_PDB%) # without the build folder
  endif()
endfunction()

# tkm_add_library(<Name> BASE_DIR <dir> SOURCES <file>... HEADERS <file>... [DEPENDS <target>...]
# [PART <part>]): the shared library TKMService_<Name> with the alias TKMService::<Name>.
# BASE_DIR is the folder from which the headers are included, PART what it is installed with.
function(tkm_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "BASE_DIR;PART" "SOURCES;HEADERS;DEPENDS")
  set(target TKMService_${name})

  add_library(${target} SHARED ${arg_SOURCES})
  add_library(TKMService::${name} ALIAS ${target})
  tkm_configure_target(${target})
  tkm_harden_target(${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${arg_BASE_DIR}" FILES ${arg_HEADERS})
  target_link_libraries(${target} PUBLIC ${arg_DEPENDS})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name}
    OUTPUT_NAME ${target}${TKM_LIBRARY_SUFFIX}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})
  if(WIN32)
    tkm_configure_dll(${target} "${PROJECT_NAME} ${name}")
  endif()
  tkm_limit_exports(${target})
  set_property(GLOBAL APPEND PROPERTY TKM_LIBRARIES ${name})
  if(TKM_INSTALL)
    tkm_install_library(${name} PART ${arg_PART} DEPENDS ${arg_DEPENDS})
  endif()
endfunction()

# tkm_limit_exports(<target>): on ELF, the library exports only names of the namespace Tarvik.
function(tkm_limit_exports target)
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(map "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/exports.map")
    target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
    set_target_properties(${target} PROPERTIES LINK_DEPENDS "${map}")
  endif()
endfunction()

# tkm_configure_dll(<target> <description>): the same file name with each compiler, and the contents of
# the file's properties.
function(tkm_configure_dll target description)
  set_target_properties(${target} PROPERTIES PREFIX "")
  set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  get_target_property(name ${target} OUTPUT_NAME)
  configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Version.rc.in" "${resource}" @ONLY)
  target_sources(${target} PRIVATE "${resource}")
endfunction()

add_library(tkm_warnings INTERFACE)
if(MSVC)
  # 4702: unreachable code, which it also finds in templates with arguments that always throw.
  target_compile_options(tkm_warnings INTERFACE /W4 /permissive- /utf-8 /wd4702
    $<$<BOOL:${TKM_WARNINGS_AS_ERRORS}>:/WX>)
  # MSVC warns about standard functions that it has replacements for, and windows.h has macros min and max.
  target_compile_definitions(tkm_warnings INTERFACE _CRT_SECURE_NO_WARNINGS NOMINMAX)
else()
  target_compile_options(tkm_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wcast-qual -Wdouble-promotion
    -Wformat=2 -Wimplicit-fallthrough -Wextra-semi -Wundef
    $<$<BOOL:${TKM_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
