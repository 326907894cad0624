// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTranslator>

#include <array>

namespace Tarvik::PointCollections {

/// The language of all texts and numbers of the program: that of the system, or one that the user
/// has chosen. The settings keep it. Widgets get QEvent::LanguageChange when it changes.
class Languages : public QObject {
  Q_OBJECT

public:
  /// The one that belongs to the application object, in the language that was chosen last.
  static Languages& instance();

  ~Languages() override;

  /// A code such as "de"; empty for the language of the system.
  static QString chosen();

  /// Changes the language at once, and remembers it.
  /// @param code  a code such as "de"; empty for the language of the system
  void choose(const QString& code);

private:
  explicit Languages(QObject* application);
  void use(const QString& code);

  std::array<QTranslator, 3> m_translators; ///< of Qt, the library, and the program
};

}
