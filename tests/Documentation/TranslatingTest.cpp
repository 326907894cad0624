// SPDX-License-Identifier: MIT
// The examples of docs/translating.md, built and run.

#include "Documentation/GuideExamples.h"
#include "Support/MoBytes.h"
#include "Translator/CatalogueFolder.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#if defined(__GLIBC__)
#include <clocale>
#include <cstdlib>
#include <libintl.h>
#endif

namespace Tarvik {
namespace {

namespace fs = std::filesystem;

/// A folder with German texts of the program "pumps".
class Translating : public ::testing::Test {
protected:
  Translating()
  {
    fs::create_directories(pumps / "de" / "LC_MESSAGES");
    std::ofstream(pumps / "de" / "LC_MESSAGES" / "pumps.mo", std::ios::binary)
        << moBytes({{"CreateTKGroupCmd\4Create Group", "Pumpengruppe"}, {"Menu\4Quit", "Schluss"}});
  }

  Translating(const Translating&) = delete;
  Translating& operator=(const Translating&) = delete;

  ~Translating() override
  {
    Translator::installCatalogue({});
    fs::remove_all(pumps);
  }

  const fs::path pumps =
      fs::temp_directory_path() / (std::string("Translating-") +
                                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

/// What a user who reads German gets.
struct UserLanguages {
  static std::vector<std::string> wanted() { return {"de_AT.UTF-8"}; }
};

TEST_F(Translating, TakesTheTextsOfThisProjectAndThoseOfTheProgram)
{
  // clang-format off
  const auto folder = CatalogueFolder::ofThisProject();
  if (const auto catalogue = folder.load(UserLanguages::wanted())) // such as de_AT.UTF-8
    Translator::installCatalogue(*catalogue);
  // clang-format on
  const bool hasCatalogues = !folder.path().empty();
  EXPECT_EQ(Translator::translate("CreateTKGroupCmd", "Create Group", nullptr, -1),
            hasCatalogues ? "Gruppe erstellen" : "Create Group");

  const auto catalogue = folder.load(UserLanguages::wanted());
  const auto own = CatalogueFolder(pumps, "pumps").load(UserLanguages::wanted());
  if (own && catalogue)
    Translator::installCatalogue(Translator::chain({*own, *catalogue}));

  if (hasCatalogues) {
    EXPECT_EQ(Translator::translate("CreateTKGroupCmd", "Create Group", nullptr, -1),
              "Pumpengruppe");
    EXPECT_EQ(Translator::translate("CreateTKGroupCmd", "Group", nullptr, -1), "Gruppe");
    EXPECT_EQ(Translator::translate("Menu", "Quit", nullptr, -1), "Schluss");
  }
}

#if defined(__GLIBC__)
TEST_F(Translating, CanBeLeftToGettext)
{
  fs::rename(pumps / "de" / "LC_MESSAGES" / "pumps.mo",
             pumps / "de" / "LC_MESSAGES" / "TKMService.mo");
  setenv("LANGUAGE", "de", 1);
  ASSERT_NE(std::setlocale(LC_MESSAGES, "C.UTF-8"), nullptr);
  bindtextdomain("TKMService", pumps.c_str());
  bind_textdomain_codeset("TKMService", "UTF-8");

  Translator::installCatalogue([](const char* context, const char* text, const char*, int) {
    const std::string key = std::string(context) + '\4' + text;
    const char* const found = dgettext("TKMService", key.c_str());
    return found == key.c_str() ? std::nullopt : std::optional<std::string>(found);
  });

  EXPECT_EQ(Translator::translate("CreateTKGroupCmd", "Create Group", nullptr, -1), "Pumpengruppe");
  EXPECT_EQ(Translator::translate("CreateTKGroupCmd", "Group", nullptr, -1), "Group");
  std::setlocale(LC_MESSAGES, "C");
  unsetenv("LANGUAGE");
}
#endif

TEST(TranslatingGuide, ShowsTheExamplesAsTheyAreHere)
{
  const auto code = withoutIndentation(TRANSLATING_SOURCE);
  const auto examples = examplesIn(TRANSLATING_DOCUMENT);

  for (const auto& example : examples)
    EXPECT_NE(code.find(example), std::string::npos) << example;
  EXPECT_EQ(examples.size(), 3U);
}

}
}
