// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The marks that export the library's class templates, instantiated for `Identifier` and
/// `GUIdentifier`. HighLevelServicesExport.h explains where compilers need them:
///
/// - `TKM_GROUPHOSTING_DECLARE` in `extern template class ... X<Identifier>;` in a header,
/// - `TKM_GROUPHOSTING_DEFINE` in `template class ... X<Identifier>;` in the source file.

#if !defined(_WIN32)
#define TKM_GROUPHOSTING_DECLARE __attribute__((visibility("default")))
#define TKM_GROUPHOSTING_DEFINE
#elif !defined(TKMService_GroupHosting_EXPORTS)
#define TKM_GROUPHOSTING_DECLARE __declspec(dllimport)
#define TKM_GROUPHOSTING_DEFINE
#elif defined(_MSC_VER)
#define TKM_GROUPHOSTING_DECLARE
#define TKM_GROUPHOSTING_DEFINE __declspec(dllexport)
#else
#define TKM_GROUPHOSTING_DECLARE __declspec(dllexport)
#define TKM_GROUPHOSTING_DEFINE
#endif

#if defined(_MSC_VER)
// Exported classes have members and bases of the standard library, which all parts of a program
// share.
#pragma warning(disable : 4251 4275)
#endif
