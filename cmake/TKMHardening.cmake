# SPDX-License-Identifier: MIT
# What makes errors in memory harder to exploit. tests/Hardening reads it back from the built files.

option(TKM_HARDENED
  "Protect stacks, calls and relocations, as Linux distributions do with their packages"
  ${PROJECT_IS_TOP_LEVEL})

# Sanitizers find more, and do not work with checks of buffer sizes.
if(TKM_HARDENED AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  set(TKM_IS_HARDENED ON)
endif()

if(TKM_IS_HARDENED AND NOT WIN32)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
endif()

# tkm_harden_target(<target>): for the libraries and the programs that are installed.
function(tkm_harden_target target)
  if(NOT TKM_IS_HARDENED)
    return()
  endif()
  if(MSVC)
    target_compile_options(${target} PRIVATE /guard:cf)
    target_link_options(${target} PRIVATE /guard:cf /CETCOMPAT /DYNAMICBASE /NXCOMPAT /HIGHENTROPYVA)
  elseif(WIN32)
    # No stack protector: GCC's needs one more DLL there.
    target_link_options(${target} PRIVATE
      LINKER:--dynamicbase LINKER:--nxcompat LINKER:--high-entropy-va)
  elseif(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${target} PRIVATE -fstack-protector-strong -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|amd64|i[3-6]86)$")
      target_compile_options(${target} PRIVATE -fcf-protection)
    endif()
    if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE") # it needs an optimised build
      target_compile_options(${target} PRIVATE
        "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    endif()
    target_link_options(${target} PRIVATE LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
  endif()
endfunction()
