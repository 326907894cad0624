// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

namespace Tarvik {

/// Lets Qt translate the texts of this project: the descriptions of commands, and what the
/// Translator is asked for by others.
///
/// The translations themselves are in files beside the library. A program that wants them writes
///
///     QtTranslation::install();
///     std::unique_ptr<CatalogueTranslator> translator; // lives as long as the application object
///     if (const auto texts = CatalogueFolder::ofThisProject().load(UserLanguages::wanted())) {
///       const auto direction = QLocale(QString::fromStdString(texts->language())).textDirection();
///       translator = std::make_unique<CatalogueTranslator>(*texts, direction);
///       QCoreApplication::installTranslator(translator.get());
///       QGuiApplication::setLayoutDirection(direction);
///     }
///
/// It may do so with another catalogue at any time. Views, actions and texts that are made after
/// that are in the new language. A description that a command has kept as a text stays as it is; a
/// CompactTKGroupCmd with a function that describes it follows.
class TKM_QTMODELS_API QtTranslation {
public:
  QtTranslation() = delete;

  /// From now on, Translator::translate() asks QCoreApplication::translate(). Replaces the
  /// catalogue that is installed. May be called before there is an application object.
  static void install();
};

}
