// SPDX-License-Identifier: MIT
#include "QtModels/Translation/LanguageWatcher.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QPointer>

namespace Tarvik {

LanguageWatcher* LanguageWatcher::instance()
{
  static QPointer<LanguageWatcher> watcher; // null again after the application object has gone
  auto* const application = QCoreApplication::instance();
  if (watcher.isNull() && application != nullptr)
    watcher = new LanguageWatcher(application);
  return watcher;
}

LanguageWatcher::LanguageWatcher(QObject* application) : QObject(application)
{
  application->installEventFilter(this);
}

LanguageWatcher::~LanguageWatcher() = default;

bool LanguageWatcher::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == parent() && event->type() == QEvent::LanguageChange)
    Q_EMIT languageChanged();
  return false;
}

}
