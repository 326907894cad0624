// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Lists.h"

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
  EXPECT_EQ(listed({}), "");
  EXPECT_EQ(listed({"Asia"}), "Asia");
  EXPECT_EQ(listed({"Asia", "Africa", "Europe"}), "Asia, Africa, Europe");
  EXPECT_EQ(listedWithAnd({}), "");
  EXPECT_EQ(listedWithAnd({"Asia"}), "Asia");
  EXPECT_EQ(listedWithAnd({"Asia", "Africa"}), "Asia and Africa");
  EXPECT_EQ(listedWithAnd({"Asia", "Africa", "Europe"}), "Asia, Africa and Europe");
  EXPECT_EQ(listedWithOr({}), "");
  EXPECT_EQ(listedWithOr({"@1", "@2", "@3"}), "@1 or @2 or @3");
}

TEST_F(Lists, AreJoinedAsTheLanguageDoes)
{
  Translator::installCatalogue(
      [](const char*, std::string_view text, const char*, int) -> std::optional<std::string> {
        return text == "{}, {}" ? "{}、{}" : "{}和{}";
      });

  EXPECT_EQ(listedWithAnd({"亚洲", "非洲", "欧洲", "美洲"}), "亚洲、非洲、欧洲和美洲");
}

}
}
