// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The marks that export the library's classes. Each class is a template, instantiated for
/// `Identifier` and `GUIdentifier` in one source file, so the instantiations carry the marks:
///
/// - `TKM_HIGHLEVELSERVICES_DECLARE` in `extern template class ... X<Identifier>;` in a header,
/// - `TKM_HIGHLEVELSERVICES_DEFINE` in `template class ... X<Identifier>;` in the source file.
///
/// While the library is built, compilers need the mark in different places. MSVC exports at the
/// definition, and warns about an export at an extern declaration (C4910). GCC and Clang take the
/// attribute from the first declaration, and ignore it at the definition. Define members outside
/// the class body: MinGW's GCC exports no others.

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

#if defined(_MSC_VER)
// Exported classes have members and bases of the standard library, which all parts of a program
// share.
#pragma warning(disable : 4251 4275)
#endif
