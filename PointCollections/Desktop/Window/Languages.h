// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/Translation/CatalogueTranslator.h"
#include "Translator/CatalogueFolder.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTranslator>

#include <memory>
#include <optional>

namespace Tarvik::PointCollections {

/// The language of all texts and numbers of the program: that of the system, or one that the user
/// has chosen. The settings keep it. Widgets get QEvent::LanguageChange when it changes, and are
/// mirrored in languages that are written from right to left.
class Languages : public QObject {
  Q_OBJECT

public:
  /// The one that belongs to the application object, in the language that was chosen last.
  static Languages& instance();

  ~Languages() override;

  /// The codes of the languages that the user can choose: "en", and then the others that there are
  /// texts in, in the order of their names.
  QStringList codes() const;

  /// What those who speak a language call it.
  static QString nativeName(const QString& code);

  /// A code such as "de" or "zh_CN"; empty for the language of the system.
  static QString chosen();

  /// Changes the language at once, and remembers it.
  /// @param code  a code such as "de" or "zh_CN"; empty for the language of the system
  void choose(const QString& code);

  /// Takes the texts from another folder than that of this project.
  void setFolder(const CatalogueFolder& folder);

  /// Tells once why the texts are not in the language that they should be in; empty if they are.
  QString takeFault();

private:
  explicit Languages(QObject* application);
  void use(const QString& code);
  std::optional<MoCatalogue> load(const QString& code);
  void install(const std::optional<MoCatalogue>& catalogue, const QLocale& language);

  CatalogueFolder m_folder = CatalogueFolder::ofThisProject();
  QString m_fault;
  QTranslator m_textsOfQt;
  std::unique_ptr<CatalogueTranslator> m_texts; ///< null if they are not translated
};

}
