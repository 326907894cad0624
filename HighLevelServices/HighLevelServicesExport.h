// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// What the library shows to others. Everything here is a template with its instantiations for
/// `Identifier` and `GUIdentifier` in one source file, so the mark stands at the instantiations:
///
/// - `TKM_HIGHLEVELSERVICES_DECLARE` in `extern template class ... X<Identifier>;` in a header,
/// - `TKM_HIGHLEVELSERVICES_DEFINE` in `template class ... X<Identifier>;` in the source file.
///
/// The compilers want it in different places while the library is built: MSVC exports at the
/// definition and warns of an export at an extern declaration (C4910), GCC and Clang take the
/// attribute from the first declaration and ignore it at the definition. Members must be defined
/// outside of the class body: MinGW's GCC exports no others.

#if !defined(_WIN32)
#define TKM_HIGHLEVELSERVICES_DECLARE __attribute__((visibility("default")))
#define TKM_HIGHLEVELSERVICES_DEFINE
#elif !defined(TKMService_HighLevelServices_EXPORTS)
#define TKM_HIGHLEVELSERVICES_DECLARE __declspec(dllimport)
#define TKM_HIGHLEVELSERVICES_DEFINE
#elif defined(_MSC_VER)
#define TKM_HIGHLEVELSERVICES_DECLARE
#define TKM_HIGHLEVELSERVICES_DEFINE __declspec(dllexport)
#else
#define TKM_HIGHLEVELSERVICES_DECLARE __declspec(dllexport)
#define TKM_HIGHLEVELSERVICES_DEFINE
#endif
