// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Arguments.h"

#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Console/Verbs/Verb.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A verb that takes A, perhaps B, and the options --flag and --value V.
Verb verbWith(Occurrence occurrenceOfB)
{
  return {.name = "do",
          .usage = "do A B",
          .summary = {},
          .details = {},
          .example = {},
          .parameters = {{"A"}, {"B", ArgumentKind::Text, occurrenceOfB}},
          .options = {{"--flag", std::nullopt}, {"--value", ArgumentKind::Text, "V"}},
          .run = {}};
}

Arguments read(std::string_view line, Occurrence occurrenceOfB = Occurrence::AnyNumber)
{
  return {verbWith(occurrenceOfB), splitWords(line)};
}

std::string mistakeWith(std::string_view line, Occurrence occurrenceOfB = Occurrence::AnyNumber)
{
  return mistakeIn([&] { read(line, occurrenceOfB); });
}

TEST(Arguments, KeepTheirOrder)
{
  const auto arguments = read("a b c");

  EXPECT_EQ(arguments.count(), 3U);
  EXPECT_EQ(arguments.at(0).text, "a");
  EXPECT_THAT(arguments.from(1), ElementsAre(Word{"b", false}, Word{"c", false}));
  EXPECT_THAT(arguments.from(3), IsEmpty());
  EXPECT_THAT(arguments.from(9), IsEmpty());
}

TEST(Arguments, MayBeMixedWithOptions)
{
  const auto arguments = read("--flag a --value --flag b");

  EXPECT_TRUE(arguments.has("--flag"));
  EXPECT_EQ(arguments.valueOf("--value").text, "--flag");
  EXPECT_EQ(arguments.count(), 2U);
  EXPECT_FALSE(read("a").has("--flag"));
}

TEST(Arguments, AreNoOptionsInQuotes)
{
  const auto arguments = read("\"--flag\" -x");

  EXPECT_FALSE(arguments.has("--flag"));
  EXPECT_EQ(arguments.at(0).text, "--flag");
  EXPECT_EQ(arguments.at(1).text, "-x");
}

TEST(Arguments, AreCounted)
{
  EXPECT_EQ(mistakeWith(""), "A is missing; usage: do A B");
  EXPECT_EQ(mistakeWith("a", Occurrence::Once), "B is missing; usage: do A B");
  EXPECT_EQ(mistakeWith("a", Occurrence::Optionally), "no mistake");
  EXPECT_EQ(mistakeWith("a b", Occurrence::Optionally), "no mistake");
  EXPECT_EQ(mistakeWith("a b \"c d\"", Occurrence::Optionally),
            "\"c d\" is one argument too many; usage: do A B");
  EXPECT_EQ(mistakeWith("a b c d e"), "no mistake");
  EXPECT_EQ(mistakeWith("a", Occurrence::OnceOrMore), "B is missing; usage: do A B");
  EXPECT_EQ(mistakeWith("a b c d e", Occurrence::OnceOrMore), "no mistake");
}

TEST(Arguments, RefuseOptionsThatTheVerbDoesNotHave)
{
  EXPECT_EQ(mistakeWith("a --falg"), "do has no option --falg; did you mean --flag?");
  EXPECT_EQ(mistakeWith("a --other"), "do has no option --other; usage: do A B");
  EXPECT_EQ(mistakeWith("a --"), "do has no option --; usage: do A B");
}

TEST(Arguments, RefuseOptionsGivenTwiceOrWithoutTheirValue)
{
  EXPECT_EQ(mistakeWith("a --flag --flag"), "--flag is given twice; give it once");
  EXPECT_EQ(mistakeWith("a --value"), "--value needs a value; expected --value V");
}

}
}
