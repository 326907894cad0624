// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qglobal.h>

/// @file
/// The marks that export the library:
///
/// - `TKM_QTMODELS_API` for classes that are no templates,
/// - `TKM_QTMODELS_DECLARE` in `extern template class ... X<Identifier>;` in a header, and
///   `TKM_QTMODELS_DEFINE` in `template class ... X<Identifier>;` in the source file, as in
///   HighLevelServicesExport.h.

#if defined(TKMService_QtModels_EXPORTS)
#define TKM_QTMODELS_API Q_DECL_EXPORT
#else
#define TKM_QTMODELS_API Q_DECL_IMPORT
#endif

#if !defined(_WIN32)
#define TKM_QTMODELS_DECLARE __attribute__((visibility("default")))
#define TKM_QTMODELS_DEFINE
#elif !defined(TKMService_QtModels_EXPORTS)
#define TKM_QTMODELS_DECLARE __declspec(dllimport)
#define TKM_QTMODELS_DEFINE
#elif defined(_MSC_VER)
#define TKM_QTMODELS_DECLARE
#define TKM_QTMODELS_DEFINE __declspec(dllexport)
#else
#define TKM_QTMODELS_DECLARE __declspec(dllexport)
#define TKM_QTMODELS_DEFINE
#endif

#if defined(_MSC_VER)
// Exported classes have members and bases of the standard library, which all parts of a program
// share.
#pragma warning(disable : 4251 4275)
#endif
