// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/Languages.h"

#include "PointCollections/Desktop/Window/FileNames.h"
#include "QtModels/Translation/QtTranslation.h"
#include "Translator/CatalogueError.h"
#include "Translator/UserLanguages.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QSettings>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

const auto settingOfLanguage = QStringLiteral("language");
const auto english = QStringLiteral("en");

bool isEnglish(const QString& code)
{
  return QLocale(code).language() == QLocale::English;
}

/// The languages that the user wants, the favourite first.
std::vector<std::string> wantedLanguages(const QString& code)
{
  return code.isEmpty() ? UserLanguages::wanted() : std::vector{code.toStdString()};
}

/// The language of a catalogue, or without one the one that Qt may have texts in.
QLocale languageOf(const std::optional<MoCatalogue>& catalogue, const QString& code)
{
  if (catalogue && !catalogue->language().empty())
    return QLocale(QString::fromStdString(catalogue->language()));
  const auto wanted = wantedLanguages(code);
  return wanted.empty() ? QLocale::c() : QLocale(QString::fromStdString(wanted.front()));
}

/// In English, since there are no other texts then.
QString faultIn(const QString& what)
{
  return QStringLiteral("The texts are in English: %1. Install the program again, or choose "
                        "another language.")
      .arg(what);
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

QStringList Languages::codes() const
{
  QStringList codes;
  for (const auto& language : m_folder.languages()) {
    if (const auto code = QString::fromStdString(language); !isEnglish(code))
      codes << code;
  }
  std::sort(codes.begin(), codes.end(),
            [](const QString& a, const QString& b) { return nativeName(a) < nativeName(b); });
  codes.prepend(english);
  return codes;
}

/// Qt knows names for regions, such as "español de España". The shortest one is that of the
/// language.
QString Languages::nativeName(const QString& code)
{
  const QLocale locale(code);
  auto name = locale.nativeLanguageName();
  if (!code.contains(u'_')) {
    const auto regions =
        QLocale::matchingLocales(locale.language(), locale.script(), QLocale::AnyTerritory);
    for (const auto& region : regions) {
      const auto other = region.nativeLanguageName();
      if (!other.isEmpty() && other.size() < name.size())
        name = other;
    }
  }
  return locale.toUpper(name.left(1)) + name.mid(1);
}

QString Languages::chosen()
{
  return QSettings().value(settingOfLanguage).toString();
}

void Languages::choose(const QString& code)
{
  QSettings().setValue(settingOfLanguage, code);
  use(code);
}

void Languages::setFolder(const CatalogueFolder& folder)
{
  m_folder = folder;
  use(chosen());
}

QString Languages::takeFault()
{
  return std::exchange(m_fault, {});
}

void Languages::use(const QString& code)
{
  QLocale::setDefault(code.isEmpty() ? QLocale::system() : QLocale(code)); // of numbers
  const auto catalogue = load(code);
  install(catalogue, m_fault.isEmpty() ? languageOf(catalogue, code) : QLocale::c());
  QEvent change(QEvent::LanguageChange); // nobody has said so if no texts were found
  QCoreApplication::sendEvent(qApp, &change);
}

/// Notes what is wrong if there are no texts.
std::optional<MoCatalogue> Languages::load(const QString& code)
{
  m_fault.clear();
  try {
    auto catalogue = m_folder.load(wantedLanguages(code));
    if (!catalogue && !code.isEmpty() && !isEnglish(code))
      m_fault = faultIn(QStringLiteral("there is no translation for \"%1\" in the folder \"%2\"")
                            .arg(code, nameOf(m_folder.path())));
    return catalogue;
  } catch (const CatalogueError& error) {
    m_fault = faultIn(QString::fromUtf8(error.what()));
    return std::nullopt;
  }
}

/// @param language  of the texts
void Languages::install(const std::optional<MoCatalogue>& catalogue, const QLocale& language)
{
  QCoreApplication::removeTranslator(&m_textsOfQt);
  m_texts.reset();
  const auto direction = catalogue ? language.textDirection() : Qt::LeftToRight;
  if (m_textsOfQt.load(language, QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&m_textsOfQt);
  if (catalogue) {
    m_texts = std::make_unique<CatalogueTranslator>(*catalogue, direction);
    QCoreApplication::installTranslator(m_texts.get());
  }
  QGuiApplication::setLayoutDirection(direction);
}

}
