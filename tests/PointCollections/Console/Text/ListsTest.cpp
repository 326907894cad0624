// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Lists.h"

#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

class Lists : public ::testing::Test {
protected:
  ~Lists() override { Translator::installCatalogue({}); }
};

TEST_F(Lists, JoinTheirItems)
{
  EXPECT_EQ(joined({}), "");
  EXPECT_EQ(joined({"Asia"}), "Asia");
  EXPECT_EQ(joined({"Asia", "Africa", "Europe"}), "Asia, Africa, Europe");
  EXPECT_EQ(joinedWithAnd({}), "");
  EXPECT_EQ(joinedWithAnd({"Asia"}), "Asia");
  EXPECT_EQ(joinedWithAnd({"Asia", "Africa"}), "Asia and Africa");
  EXPECT_EQ(joinedWithAnd({"Asia", "Africa", "Europe"}), "Asia, Africa and Europe");
}

TEST_F(Lists, AreJoinedAsTheLanguageDoes)
{
  Translator::installCatalogue(
      [](const char*, std::string_view text, const char*, int) -> std::optional<std::string> {
        return text == "{}, {}" ? "{}、{}" : "{}和{}";
      });

  EXPECT_EQ(joinedWithAnd({"亚洲", "非洲", "欧洲", "美洲"}), "亚洲、非洲、欧洲和美洲");
}

}
}
