// SPDX-License-Identifier: MIT
#include "Translator/MoCatalogue.h"

#include "Support/MoBytes.h"
#include "Translator/CatalogueError.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

const std::string header = "Language: de\nContent-Type: text/plain; charset=UTF-8\n"
                           "Plural-Forms: nplurals=2; plural=(n != 1);\n";

const std::vector<MoEntry> german = {
    {"", header},
    {"Add\4Pump", "Pumpe"},
    {"Add|noun\4Pump", "Pumpe (Gerät)"},
    {"Count\4{} pump" + nul + "{} pumps", "{} Pumpe" + nul + "{} Pumpen"},
    {"Quit", "Beenden"}};

class Catalogue : public ::testing::TestWithParam<ByteOrder> {
protected:
  const MoCatalogue catalogue = MoCatalogue::fromMemory(moBytes(german, GetParam()));
};

TEST_P(Catalogue, TranslatesATextOfAContext)
{
  EXPECT_EQ(catalogue("Add", "Pump", nullptr, -1), "Pumpe");
  EXPECT_EQ(catalogue("Remove", "Pump", nullptr, -1), std::nullopt);
  EXPECT_EQ(catalogue("Add", "Valve", nullptr, -1), std::nullopt);
  EXPECT_EQ(catalogue(nullptr, "Pump", nullptr, -1), std::nullopt);
}

TEST_P(Catalogue, TranslatesATextWithoutAContext)
{
  EXPECT_EQ(catalogue(nullptr, "Quit", nullptr, -1), "Beenden");
  EXPECT_EQ(catalogue("", "Quit", "", -1), "Beenden");
  EXPECT_EQ(catalogue("Add", "Quit", nullptr, -1), std::nullopt);
}

TEST_P(Catalogue, PrefersTheTranslationForADisambiguation)
{
  EXPECT_EQ(catalogue("Add", "Pump", "noun", -1), "Pumpe (Gerät)");
  EXPECT_EQ(catalogue("Add", "Pump", "verb", -1), "Pumpe");
  EXPECT_EQ(catalogue("Count", "{} pump", "noun", 2), "{} Pumpen");
}

TEST_P(Catalogue, ChoosesThePluralForm)
{
  EXPECT_EQ(catalogue("Count", "{} pump", nullptr, 0), "{} Pumpen");
  EXPECT_EQ(catalogue("Count", "{} pump", nullptr, 1), "{} Pumpe");
  EXPECT_EQ(catalogue("Count", "{} pump", nullptr, 2147483647), "{} Pumpen");
  EXPECT_EQ(catalogue("Count", "{} pump", nullptr, -1), "{} Pumpe");
  EXPECT_EQ(catalogue("Count", "{} pumps", nullptr, 2), std::nullopt) << "it is not the key";
}

TEST_P(Catalogue, UsesTheOnlyFormForEveryNumber)
{
  EXPECT_EQ(catalogue("Add", "Pump", nullptr, 0), "Pumpe");
  EXPECT_EQ(catalogue("Add", "Pump", nullptr, 7), "Pumpe");
}

TEST_P(Catalogue, HasNoTranslationOfNothing)
{
  EXPECT_EQ(catalogue(nullptr, "", nullptr, -1), std::nullopt) << "that is the header";
  EXPECT_EQ(catalogue(nullptr, nullptr, nullptr, -1), std::nullopt);
  EXPECT_EQ(catalogue("Add", nullptr, "noun", 3), std::nullopt);
}

TEST_P(Catalogue, TellsWhatItIs)
{
  EXPECT_EQ(catalogue.language(), "de");
  EXPECT_EQ(catalogue.size(), 4U);
}

TEST_P(Catalogue, IsUsedByTheTranslatorAfterItIsGone)
{
  {
    const auto shortLived = MoCatalogue::fromMemory(moBytes(german, GetParam()));
    Translator::installCatalogue(shortLived);
  }
  EXPECT_EQ(Translator::translate("Add", "Pump", nullptr, -1), "Pumpe");
  EXPECT_EQ(Translator::translate("Add", "Valve", nullptr, -1), "Valve");
  Translator::installCatalogue({});
}

INSTANTIATE_TEST_SUITE_P(InBothByteOrders,
                         Catalogue,
                         ::testing::Values(ByteOrder::Little, ByteOrder::Big),
                         [](const auto& each) {
                           return each.param == ByteOrder::Little ? "Little" : "Big";
                         });

TEST(MoCatalogue, FindsEveryTextOfManyAndNoOther)
{
  std::vector<MoEntry> entries;
  for (int i = 100; i < 999; i += 2)
    entries.emplace_back("text " + std::to_string(i), "Text " + std::to_string(i));
  const auto catalogue = MoCatalogue::fromMemory(moBytes(entries));

  for (int i = 99; i < 1001; ++i) {
    const auto text = std::to_string(i);
    const bool isThere = i >= 100 && i < 999 && i % 2 == 0;
    EXPECT_EQ(catalogue(nullptr, ("text " + text).c_str(), nullptr, -1),
              isThere ? std::optional("Text " + text) : std::nullopt);
  }
  EXPECT_EQ(catalogue.size(), entries.size());
}

TEST(MoCatalogue, MayBeEmpty)
{
  const auto catalogue = MoCatalogue::fromMemory(moBytes({}));

  EXPECT_EQ(catalogue.size(), 0U);
  EXPECT_EQ(catalogue.language(), "");
  EXPECT_EQ(catalogue("Add", "Pump", nullptr, 1), std::nullopt);
}

TEST(MoCatalogue, TakesAnEmptyTranslationForNone)
{
  const auto catalogue =
      MoCatalogue::fromMemory(moBytes({{"Pump", ""}, {"Valve" + nul + "Valves", nul + "Ventile"}}));

  EXPECT_EQ(catalogue(nullptr, "Pump", nullptr, -1), std::nullopt);
  EXPECT_EQ(catalogue(nullptr, "Valve", nullptr, 1), std::nullopt);
  EXPECT_EQ(catalogue(nullptr, "Valve", nullptr, 2), "Ventile");
}

TEST(MoCatalogue, TakesTheContextAloneIfTheDisambiguationIsNotTranslated)
{
  const auto catalogue =
      MoCatalogue::fromMemory(moBytes({{"Add\4Pump", "Pumpe"}, {"Add|noun\4Pump", ""}}));

  EXPECT_EQ(catalogue("Add", "Pump", "noun", -1), "Pumpe");
}

TEST(MoCatalogue, HasTheFormsOfEnglishWithoutARule)
{
  const auto catalogue =
      MoCatalogue::fromMemory(moBytes({{"Valve" + nul + "Valves", "Ventil" + nul + "Ventile"}}));

  EXPECT_EQ(catalogue(nullptr, "Valve", nullptr, 1), "Ventil");
  EXPECT_EQ(catalogue(nullptr, "Valve", nullptr, 0), "Ventile");
}

TEST(MoCatalogue, ReadsAFile)
{
  const auto file = std::filesystem::temp_directory_path() / "MoCatalogue-ReadsAFile.mo";
  std::ofstream(file, std::ios::binary) << moBytes(german);

  const auto catalogue = MoCatalogue::fromFile(file);
  std::filesystem::remove(file);

  EXPECT_EQ(catalogue(nullptr, "Quit", nullptr, -1), "Beenden");
}

TEST(MoCatalogue, OfAChainIsAskedIfThoseBeforeItHaveNoTranslation)
{
  const auto own = MoCatalogue::fromMemory(moBytes({{"Quit", "Schluss"}}));
  const auto common = MoCatalogue::fromMemory(moBytes(german));
  const auto chain = Translator::chain({own, {}, common});

  EXPECT_EQ(chain(nullptr, "Quit", nullptr, -1), "Schluss");
  EXPECT_EQ(chain("Add", "Pump", nullptr, -1), "Pumpe");
  EXPECT_EQ(chain("Add", "Valve", nullptr, -1), std::nullopt);
  EXPECT_EQ(Translator::chain({})("Add", "Pump", nullptr, -1), std::nullopt);
}

}
}
