// SPDX-License-Identifier: MIT
#include "Translator/CatalogueFolder.h"

#include "Support/MoBytes.h"
#include "Translator/CatalogueError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace Tarvik {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A folder with catalogues for German, Austrian German, and Chinese in both ways of writing.
class Folder : public ::testing::Test {
protected:
  Folder()
  {
    for (const auto* const language : {"zh_TW", "de", "de_AT", "zh_CN"})
      write(language, moBytes({{"", std::string("Language: ") + language + "\n"}}));
    fs::create_directories(path / "fr" / "LC_MESSAGES"); // without a file
    write("../outside", "");
  }

  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() override { fs::remove_all(path.parent_path()); }

  void write(const std::string& language, const std::string& bytes) const
  {
    fs::create_directories(path / language / "LC_MESSAGES");
    std::ofstream(path / language / "LC_MESSAGES" / "pumps.mo", std::ios::binary) << bytes;
  }

  /// The language of the file for a language; empty if there is none.
  std::string found(const std::string& language) const
  {
    const auto file = folder.find(language);
    return file ? file->parent_path().parent_path().filename().string() : "";
  }

  const fs::path path =
      fs::temp_directory_path() /
      ("CatalogueFolderTest-" +
       std::string(::testing::UnitTest::GetInstance()->current_test_info()->name())) /
      "locale";
  const CatalogueFolder folder = CatalogueFolder(path, "pumps");
};

TEST_F(Folder, ListsTheLanguagesOfItsFiles)
{
  EXPECT_THAT(folder.languages(), ElementsAre("de", "de_AT", "zh_CN", "zh_TW"));
  EXPECT_THAT(CatalogueFolder(path, "valves").languages(), IsEmpty());
  EXPECT_THAT(CatalogueFolder(path / "none", "pumps").languages(), IsEmpty());
  EXPECT_THAT(CatalogueFolder({}, "pumps").languages(), IsEmpty());
}

TEST_F(Folder, FindsTheLanguageOfALocale)
{
  EXPECT_EQ(found("de"), "de");
  EXPECT_EQ(found("de_DE.UTF-8"), "de");
  EXPECT_EQ(found("de_DE@euro"), "de");
  EXPECT_EQ(found("de-at"), "de_AT");
  EXPECT_EQ(found("DE_AT.utf8"), "de_AT");
  EXPECT_EQ(found("de-Latn-AT"), "de_AT");
  EXPECT_EQ(found("fr"), "");
  EXPECT_EQ(found("d"), "");
  EXPECT_EQ(found(""), "");
}

TEST_F(Folder, FindsChineseInTheRightWayOfWriting)
{
  for (const auto* const simplified : {"zh", "zh_CN.UTF-8", "zh-Hans", "zh_SG", "zh-Hans-HK"})
    EXPECT_EQ(found(simplified), "zh_CN") << simplified;
  for (const auto* const traditional : {"zh_TW", "zh-Hant", "zh_HK.UTF-8", "zh-MO", "zh-Hant-CN"})
    EXPECT_EQ(found(traditional), "zh_TW") << traditional;
}

TEST_F(Folder, FindsNothingOutsideOfIt)
{
  for (const auto* const name : {"../outside", "..", "/etc", "de/../de", "../locale/de", "_"})
    EXPECT_EQ(found(name), "") << name;
}

TEST_F(Folder, FindsEveryLanguageThatItLists)
{
  for (const auto* const language : {"sr@latin", "pt-BR", "zh_HK", "ca_ES_valencia"})
    write(language, moBytes({}));

  for (const auto& language : folder.languages())
    EXPECT_EQ(found(language), language);
  EXPECT_EQ(folder.languages().size(), 8U);
}

TEST_F(Folder, TakesTheRegionBeforeAVariant)
{
  EXPECT_EQ(found("de_AT_1996"), "de_AT");
}

TEST_F(Folder, WithoutAPathHasNothing)
{
  const auto before = fs::current_path();
  fs::current_path(path);
  const CatalogueFolder none({}, "pumps");
  EXPECT_EQ(none.find("de"), std::nullopt) << "that of the current folder";
  EXPECT_FALSE(none.load({"de"}));
  fs::current_path(before);
}

TEST_F(Folder, LoadsTheFirstLanguageThatThereIs)
{
  EXPECT_EQ(folder.load({"fr_FR", "zh_CN", "de"})->language(), "zh_CN");
  EXPECT_FALSE(folder.load({"fr", "pl"}));
  EXPECT_FALSE(folder.load({}));
}

TEST_F(Folder, LoadsNothingForTheLanguageOfTheTexts)
{
  for (const auto* const english : {"en", "en_GB.UTF-8", "C", "C.UTF-8", "POSIX"})
    EXPECT_FALSE(folder.load({english, "de"})) << english;
  write("en", moBytes({{"", "Language: en\n"}}));
  EXPECT_EQ(folder.load({"en_GB", "de"})->language(), "en") << "a program may have such texts";
}

TEST_F(Folder, TellsOfADamagedFile)
{
  write("de", "damaged");

  try {
    folder.load({"de"});
    FAIL() << "the file was taken";
  } catch (const CatalogueError& error) {
    EXPECT_THAT(error.what(), ::testing::HasSubstr("pumps.mo, byte 7: expected a .mo file"));
  }
}

TEST(CatalogueFolder, OfThisProjectIsEmptyOrHasItsLanguages)
{
  const auto folder = CatalogueFolder::ofThisProject();

  if (folder.path().empty())
    EXPECT_THAT(folder.languages(), IsEmpty());
  else
    EXPECT_THAT(folder.languages(), ::testing::Contains("de"));
}

}
}
