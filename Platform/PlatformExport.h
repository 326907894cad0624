// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// One macro per platform library. It marks what the library exports.
///
/// CMake defines `TKMService_<Library>_EXPORTS` while it builds that library; all others import. On
/// ELF, exporting and importing are the same; everything without the mark is hidden.

#if defined(_WIN32)
#define TKM_EXPORT __declspec(dllexport)
#define TKM_IMPORT __declspec(dllimport)
#else
#define TKM_EXPORT __attribute__((visibility("default")))
#define TKM_IMPORT __attribute__((visibility("default")))
#endif

#if defined(TKMService_CommandPattern_EXPORTS)
#define TKM_COMMANDPATTERN_API TKM_EXPORT
#else
#define TKM_COMMANDPATTERN_API TKM_IMPORT
#endif

#if defined(TKMService_Translator_EXPORTS)
#define TKM_TRANSLATOR_API TKM_EXPORT
#else
#define TKM_TRANSLATOR_API TKM_IMPORT
#endif

#if defined(TKMService_GeneralServices_EXPORTS)
#define TKM_GENERALSERVICES_API TKM_EXPORT
#else
#define TKM_GENERALSERVICES_API TKM_IMPORT
#endif

#if defined(TKMService_Identifier_EXPORTS)
#define TKM_IDENTIFIER_API TKM_EXPORT
#else
#define TKM_IDENTIFIER_API TKM_IMPORT
#endif

#if defined(TKMService_PersistenceArchiver_EXPORTS)
#define TKM_PERSISTENCEARCHIVER_API TKM_EXPORT
#else
#define TKM_PERSISTENCEARCHIVER_API TKM_IMPORT
#endif

#if defined(_MSC_VER)
// Exported classes have members and bases of the standard library, which all parts of a program
// share.
#pragma warning(disable : 4251 4275)
#endif
