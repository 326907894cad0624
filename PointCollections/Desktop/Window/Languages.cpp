// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/Languages.h"

#include "QtModels/Translation/QtTranslation.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QSettings>

#include <cstddef>

namespace Tarvik::PointCollections {
namespace {

const auto key = QStringLiteral("language");

/// The locale whose texts are shown. With a list of languages, such as English and then German, Qt
/// would take German texts, since there is no file with English ones.
QLocale localeFor(const QString& code)
{
  if (!code.isEmpty())
    return QLocale(code);
  const auto wanted = QLocale::system().uiLanguages();
  return wanted.isEmpty() ? QLocale::system() : QLocale(wanted.constFirst());
}

}

Languages& Languages::instance()
{
  auto* const known = qApp->findChild<Languages*>(QString(), Qt::FindDirectChildrenOnly);
  return known ? *known : *new Languages(qApp);
}

Languages::Languages(QObject* application) : QObject(application)
{
  QtTranslation::install();
  use(chosen());
}

Languages::~Languages() = default;

QString Languages::chosen()
{
  return QSettings().value(key).toString();
}

void Languages::choose(const QString& code)
{
  QSettings().setValue(key, code);
  use(code);
}

void Languages::use(const QString& code)
{
  const std::array<QString, 3> names = {QStringLiteral("qtbase"), QStringLiteral("TKMService"),
                                        QStringLiteral("point-collections-desktop")};
  const std::array<QString, 3> folders = {QLibraryInfo::path(QLibraryInfo::TranslationsPath),
                                          QString::fromLatin1(QtTranslation::folder),
                                          QStringLiteral(":/point-collections")};
  QLocale::setDefault(code.isEmpty() ? QLocale::system() : QLocale(code)); // of numbers
  for (std::size_t i = 0; i < names.size(); ++i) {
    QCoreApplication::removeTranslator(&m_translators[i]);
    if (m_translators[i].load(localeFor(code), names[i], QStringLiteral("_"), folders[i]))
      QCoreApplication::installTranslator(&m_translators[i]);
  }
  QEvent change(QEvent::LanguageChange); // nobody has said so if no texts were found
  QCoreApplication::sendEvent(qApp, &change);
}

}
