// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QObject>

namespace Tarvik {

/// Tells objects that are no widgets when the user has switched the language. Widgets get the event
/// QEvent::LanguageChange; other objects do not.
///
/// Qt sends that event to the application whenever a translator is installed or removed. A program
/// that installs a catalogue of its own in the Translator sends it itself:
///
///     QEvent change(QEvent::LanguageChange);
///     QCoreApplication::sendEvent(qApp, &change);
class TKM_QTMODELS_API LanguageWatcher : public QObject {
  Q_OBJECT

public:
  /// The watcher of the application object, which owns it; null when there is no such object. Call
  /// it on the thread of that object.
  static LanguageWatcher* instance();

  ~LanguageWatcher() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
  /// Texts that are translated from now on are in the new language.
  void languageChanged();

private:
  explicit LanguageWatcher(QObject* application);
};

}
