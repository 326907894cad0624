// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"
#include "Translator/Translator.h"

#include <QtCore/QString>
#include <QtCore/QTranslator>
#include <QtCore/Qt>

namespace Tarvik {

/// Translates the texts of a Qt program with a catalogue, such as a MoCatalogue. A program that has
/// several catalogues gives a function that asks one after the other.
///
///     CatalogueTranslator german(MoCatalogue::fromFile("de/LC_MESSAGES/TKMService.mo"));
///     QCoreApplication::installTranslator(&german);
///
/// QtTranslation shows a program in the user's language. While it is installed, any thread may ask
/// it. It leaves the application when it is destroyed.
class TKM_QTMODELS_API CatalogueTranslator : public QTranslator {
  Q_OBJECT

public:
  /// @param catalogue  an empty function has no translations. It must call neither
  ///                   Translator::translate(), which QtTranslation::install() lets ask Qt, nor
  ///                   Qt's own translate(). A text for which it throws is not translated
  /// @param direction  of the language. From right to left, what a placeholder such as "%1" or "{}"
  ///                   stands for is put between U+2068 and U+2069: then a name in other letters
  ///                   does not change the order of the words around it
  explicit CatalogueTranslator(Translator::Catalogue catalogue,
                               Qt::LayoutDirection direction = Qt::LeftToRight);
  ~CatalogueTranslator() override;

  /// Whether there is no catalogue.
  bool isEmpty() const override;

  /// @return null if the catalogue has no translation
  QString translate(const char* context,
                    const char* text,
                    const char* disambiguation = nullptr,
                    int count = -1) const override;

private:
  Translator::Catalogue m_catalogue;
  Qt::LayoutDirection m_direction;
};

}
