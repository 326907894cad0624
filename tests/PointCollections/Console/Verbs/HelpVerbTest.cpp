// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Help, ListsEveryVerb)
{
  auto session = sessionOf({});
  const auto list = run(session, {"help"});

  for (const Verb& verb : allVerbs())
    EXPECT_THAT(list, HasSubstr(verb.summary));
  EXPECT_THAT(list, StartsWith("  show     draw the groups"));
}

TEST(Help, ExplainsAVerb)
{
  auto session = sessionOf({});

  EXPECT_EQ(run(session, {"help quit"}),
            "quit: leave the program.\n"
            "You are asked what is to become of changes that are not saved. In a script, the "
            "lines behind it\nare not read. Ctrl-D does the same on a terminal.\n"
            "\n"
            "Usage:    quit\n"
            "Example:  quit");
}

TEST(Help, SuggestsAVerb)
{
  auto session = sessionOf({});

  EXPECT_EQ(mistake(session, "help histroy"), "histroy is not a verb; did you mean history?");
  EXPECT_EQ(mistake(session, "dance"), "dance is not a verb; help lists the verbs");
}

TEST(Verbs, AreDescribedInFull)
{
  for (const Verb& verb : allVerbs()) {
    SCOPED_TRACE(verb.name);
    EXPECT_THAT(verb.usage, StartsWith(verb.name));
    EXPECT_THAT(verb.example, StartsWith(verb.name));
    EXPECT_FALSE(verb.summary.empty() || verb.summary.ends_with('.'));
    EXPECT_TRUE(verb.details.ends_with('.'));
    for (const auto& parameter : verb.parameters)
      EXPECT_THAT(verb.usage, HasSubstr(parameter.label));
    for (const auto& option : verb.options)
      EXPECT_THAT(verb.usage, HasSubstr(option.name));
  }
}

TEST(Verbs, HaveExamplesThatFitTheirUsage)
{
  for (const Verb& verb : allVerbs()) {
    auto words = splitWords(verb.example);
    words.erase(words.begin());
    EXPECT_NO_THROW(Arguments(verb, words)) << verb.name;
  }
}

}
}
