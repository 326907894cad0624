// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Language.h"

#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "Translator/CatalogueFolder.h"
#include "Translator/Translator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;

class ChosenLanguage : public ::testing::Test {
protected:
  ~ChosenLanguage() override { Translator::installCatalogue({}); }

  const CatalogueFolder folder = CatalogueFolder::ofThisProject(); ///< empty without gettext
};

TEST_F(ChosenLanguage, IsThatOfTheTextsFromThenOn)
{
  for (const auto& language : folder.languages()) {
    EXPECT_EQ(chooseLanguage(language), "");
    EXPECT_NE(translated("warning"), "warning") << language;
  }
}

TEST_F(ChosenLanguage, FollowsARegionOfIt)
{
  const bool hasGerman = folder.find("de").has_value();
  if (hasGerman) {
    EXPECT_EQ(chooseLanguage("de_AT.UTF-8"), "");
  }
  EXPECT_EQ(translated("warning"), hasGerman ? "Warnung" : "warning");
}

TEST_F(ChosenLanguage, MayBeEnglish)
{
  for (const auto* const english :
       {"en", "EN", "en_GB", "en-US", "en.UTF-8", "C", "C.UTF-8", "POSIX"}) {
    EXPECT_EQ(chooseLanguage(english), "") << english;
    EXPECT_EQ(translated("warning"), "warning") << english;
  }
}

TEST_F(ChosenLanguage, IsRefusedIfThereAreNoTextsInIt)
{
  for (const auto* const unknown : {"xx", "", "../de", "english"}) {
    try {
      chooseLanguage(unknown);
      ADD_FAILURE() << '"' << unknown << "\" was taken";
    } catch (const UserError& error) {
      EXPECT_THAT(error.what(), HasSubstr("there are no texts in "));
      EXPECT_THAT(error.what(), HasSubstr("expected one of "));
    }
  }
}

}
}
