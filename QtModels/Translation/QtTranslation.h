// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

namespace Tarvik {

/// Lets Qt translate the texts of this project: the descriptions of commands, and what the
/// Translator is asked for by others.
///
/// The German texts are in the library, as the resource ":/TKMService/TKMService_de.qm". A program
/// that wants them writes
///
///     QtTranslation::install();
///     QTranslator translator;
///     if (translator.load(QLocale(), "TKMService", "_", QtTranslation::folder))
///       QCoreApplication::installTranslator(&translator);
///
/// It may do so with other translators at any time. Views, actions and texts that are made after
/// that are in the new language. A description that a command has kept as a text stays as it is; a
/// CompactTKGroupCmd with a function that describes it follows.
class TKM_QTMODELS_API QtTranslation {
public:
  /// Where the library's own translations are, for QTranslator::load().
  static const char* const folder;

  QtTranslation() = delete;

  /// From now on, Translator::translate() asks QCoreApplication::translate(). Replaces the
  /// catalogue that is installed. May be called before there is an application object.
  static void install();
};

}
