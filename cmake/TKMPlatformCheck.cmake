# SPDX-License-Identifier: MIT
# Proves that a program and the library share one copy of the platform: one registry, one translator,
# one source of identifiers. Two copies build without an error and fail later. Also checks that the
# registry accepts a pair of classes twice, as the library needs.
include(MinGWRuntime)

# tkm_add_platform_check([LIBRARY <target>]): the program tkm-check-platform, which runs when it is
# built. With LIBRARY it also looks at what that library registered.
function(tkm_add_platform_check)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "LIBRARY" "")
  set(sources "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/PlatformCheck")
  set(platform TKMService::Identifier TKMService::PersistenceArchiver TKMService::Translator)

  add_library(tkm-check-platform-library SHARED "${sources}/LibrarySide.cpp")
  tkm_configure_target(tkm-check-platform-library)
  tkm_limit_exports(tkm-check-platform-library)
  target_compile_definitions(tkm-check-platform-library PRIVATE TKM_LIBRARY_SIDE)
  target_link_libraries(tkm-check-platform-library PRIVATE ${platform})

  add_executable(tkm-check-platform "${sources}/ProgramSide.cpp")
  tkm_configure_target(tkm-check-platform)
  target_compile_definitions(tkm-check-platform PRIVATE
    $<$<BOOL:${TKM_CHECK_TRANSLATOR}>:TKM_CHECK_TRANSLATOR> $<$<BOOL:${arg_LIBRARY}>:TKM_CHECK_GROUPS>)
  target_link_libraries(tkm-check-platform PRIVATE
    tkm-check-platform-library ${arg_LIBRARY} ${platform})
  if(MINGW)
    get_target_property(folder tkm-check-platform RUNTIME_OUTPUT_DIRECTORY)
    if(NOT folder)
      set(folder "${CMAKE_CURRENT_BINARY_DIR}")
    endif()
    tkm_copy_mingw_runtime("${folder}")
  endif()
  if(WIN32)
    add_custom_command(TARGET tkm-check-platform POST_BUILD
      COMMAND "${CMAKE_COMMAND}" -E copy_if_different
        $<TARGET_RUNTIME_DLLS:tkm-check-platform> $<TARGET_FILE_DIR:tkm-check-platform>
      COMMAND_EXPAND_LISTS)
  endif()
  add_custom_command(TARGET tkm-check-platform POST_BUILD
    COMMAND tkm-check-platform
    COMMENT "Checking the platform" VERBATIM)
endfunction()

# tkm_check_platform_now(): builds and runs the check while configuring, once for each place in which
# find_package() finds the platform. Stops when it fails.
function(tkm_check_platform_now)
  if(TKM_CHECKED_PLATFORM STREQUAL TKMServicePlatform_DIR)
    return()
  endif()
  message(STATUS "Checking the platform")
  set(flags "")
  foreach(variable IN ITEMS # a project in try_compile() inherits the compiler only
      CMAKE_BUILD_TYPE CMAKE_CROSSCOMPILING_EMULATOR CMAKE_CXX_FLAGS CMAKE_EXE_LINKER_FLAGS
      CMAKE_FIND_ROOT_PATH CMAKE_MODULE_PATH CMAKE_MSVC_RUNTIME_LIBRARY CMAKE_PREFIX_PATH
      CMAKE_SHARED_LINKER_FLAGS CMAKE_TOOLCHAIN_FILE TKMServicePlatform_DIR TKM_CHECK_TRANSLATOR)
    string(REPLACE ";" "\\;" value "${${variable}}")
    list(APPEND flags "-D${variable}=${value}")
  endforeach()
  try_compile(is_shared
    PROJECT TKMPlatformCheck
    SOURCE_DIR "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/PlatformCheck"
    BINARY_DIR "${CMAKE_CURRENT_BINARY_DIR}/PlatformCheck"
    NO_CACHE
    CMAKE_FLAGS ${flags}
    OUTPUT_VARIABLE output)
  if(is_shared)
    set(TKM_CHECKED_PLATFORM "${TKMServicePlatform_DIR}" CACHE INTERNAL "The platform found to be right")
    return()
  endif()

  string(REGEX MATCHALL "platform check: [^\n]*" problems "${output}")
  if(NOT problems)
    message(FATAL_ERROR "TKM_PLATFORM=external: a program on the platform in "
      "${TKMServicePlatform_DIR} cannot be built and run:\n${output}")
  endif()
  list(TRANSFORM problems REPLACE "platform check: " "  ")
  list(JOIN problems "\n" problems)
  message(FATAL_ERROR "TKM_PLATFORM=external: the platform in ${TKMServicePlatform_DIR} does not pass "
    "the check:\n${problems}\ndocs/bringing-your-own-platform.md has more.")
endfunction()
