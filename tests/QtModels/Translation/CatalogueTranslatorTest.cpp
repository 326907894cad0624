// SPDX-License-Identifier: MIT
#include "QtModels/Translation/CatalogueTranslator.h"

#include "QtModels/Translation/QtTranslation.h"
#include "Translator/Translator.h"

#include <QtCore/QCoreApplication>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace Tarvik {
namespace {

/// What a catalogue was asked for.
struct Question {
  std::string context;
  std::string text;
  std::string disambiguation;
  int count = 0;

  bool operator==(const Question&) const = default;
};

/// A catalogue with one translation, for every text.
Translator::Catalogue alwaysAnswering(const std::string& translation)
{
  return [translation](const char*, const char*, const char*, int) { return translation; };
}

Translator::Catalogue withoutTranslations()
{
  return [](const char*, const char*, const char*, int) { return std::nullopt; };
}

/// While it exists, Qt asks this catalogue.
struct Installed {
  explicit Installed(Translator::Catalogue catalogue,
                     Qt::LayoutDirection direction = Qt::LeftToRight)
      : translator(std::move(catalogue), direction)
  {
    QCoreApplication::installTranslator(&translator);
  }

  CatalogueTranslator translator;
};

QString translationOf(const char* text, int count = -1)
{
  return QCoreApplication::translate("Menu", text, nullptr, count);
}

TEST(CatalogueTranslatorTest, AsksTheCatalogueForWhatQtIsAskedFor)
{
  Question asked;
  const Installed installed(
      [&](const char* context, const char* text, const char* disambiguation, int count) {
        asked = {context, text, disambiguation, count};
        return std::string("Öffnen");
      });

  EXPECT_EQ(QCoreApplication::translate("Menu", "Open", "a file", 3), "Öffnen");
  EXPECT_EQ(asked, (Question{"Menu", "Open", "a file", 3}));
}

TEST(CatalogueTranslatorTest, LeavesATextThatTheCatalogueDoesNotHave)
{
  const Installed installed(withoutTranslations());

  EXPECT_EQ(translationOf("Open"), "Open");
}

TEST(CatalogueTranslatorTest, LeavesATextToTranslatorsThatWereInstalledBefore)
{
  const Installed before(alwaysAnswering("of another"));
  const Installed installed(withoutTranslations());

  EXPECT_EQ(translationOf("Open"), "of another");
}

TEST(CatalogueTranslatorTest, TakesAnEmptyTranslationForOne)
{
  const Installed installed(alwaysAnswering(""));

  EXPECT_EQ(translationOf("Open"), "");
}

TEST(CatalogueTranslatorTest, IsEmptyWithoutACatalogueOnly)
{
  EXPECT_FALSE(CatalogueTranslator(withoutTranslations()).isEmpty());

  const CatalogueTranslator empty({});
  EXPECT_TRUE(empty.isEmpty());
  EXPECT_TRUE(empty.translate("Menu", "Open").isNull());
}

TEST(CatalogueTranslatorTest, LeavesATextForWhichTheCatalogueThrows)
{
  const Installed installed([](const char*, const char*, const char*, int) -> std::string {
    throw std::runtime_error("the disk is gone");
  });

  EXPECT_EQ(translationOf("Open"), "Open");
}

TEST(CatalogueTranslatorTest, LetsQtPutTheNumberIn)
{
  const Installed installed(alwaysAnswering("%n Gruppen"));

  EXPECT_EQ(translationOf("%n groups", 3), "3 Gruppen");
}

TEST(CatalogueTranslatorTest, KeepsThePlaceholdersOfTextsThatAreNoneOfQt)
{
  QtTranslation::install();
  const Installed installed(alwaysAnswering("{} von {1} (100 %)"));

  EXPECT_EQ(Translator::translate("PointCollections", "{} element", nullptr, 3),
            "{} von {1} (100 %)");
  Translator::installCatalogue({});
}

TEST(CatalogueTranslatorTest, IsolatesNamesInLanguagesThatAreWrittenFromRightToLeft)
{
  const Installed arabic(alwaysAnswering("%2 ← %L1, {}, {0:>3}, %n, 5%, {x}, {{}}, \\u{0}"),
                         Qt::RightToLeft);

  EXPECT_EQ(translationOf("any"), "\u2068%2\u2069 ← \u2068%L1\u2069, \u2068{}\u2069, "
                                  "\u2068{0:>3}\u2069, %n, 5%, {x}, {{}}, \\u{0}");
}

TEST(CatalogueTranslatorTest, AddsNothingToTextsThatAreWrittenFromLeftToRight)
{
  const Installed german(alwaysAnswering("%1 → {}"));

  EXPECT_EQ(translationOf("any"), "%1 → {}");
}

TEST(CatalogueTranslatorTest, LeavesTheApplicationWhenItIsDestroyed)
{
  auto installed = std::make_unique<Installed>(alwaysAnswering("Öffnen"));
  installed.reset();

  EXPECT_EQ(translationOf("Open"), "Open");
}

}
}
