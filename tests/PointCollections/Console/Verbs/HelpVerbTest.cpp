// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Help, ListsEveryCommand)
{
  auto session = sessionOf({});
  const auto list = run(session, {"help"});

  for (const Verb& verb : allVerbs())
    EXPECT_THAT(list, HasSubstr(verb.summary));
  EXPECT_THAT(list, StartsWith("  show        draw the groups"));
}

TEST(Help, ExplainsACommand)
{
  auto session = sessionOf({});

  EXPECT_EQ(
      run(session, {"help quit"}),
      "quit: leave the program.\n"
      "If there are unsaved changes, you are asked what to do with them. In a script, the "
      "lines after quit\nare not read. On a terminal, Ctrl-D does the same; exit and q are other "
      "names.\n"
      "\n"
      "Usage:    quit\n"
      "Example:  quit");
}

TEST(Help, FitsOnANarrowTerminal)
{
  auto session = sessionOf({});
  session.columns = [] { return std::size_t(30); };

  EXPECT_THAT(run(session, {"help"}), StartsWith("  show        draw the groups\n"
                                                 "              with their\n"
                                                 "              members, and the\n"));
  EXPECT_THAT(run(session, {"help quit"}), HasSubstr("quit: leave the program.\n"
                                                     "If there are unsaved changes,\n"));
}

TEST(Help, LeadsFromOtherNamesToTheCommand)
{
  auto session = sessionOf({"a"});

  EXPECT_EQ(run(session, {"?"}), run(session, {"help"}));
  EXPECT_EQ(run(session, {"? q"}), run(session, {"help quit"}));
  EXPECT_EQ(run(session, {"ls"}), run(session, {"show"}));
  run(session, {"exit"});
  EXPECT_TRUE(session.isOver);
}

TEST(Help, SuggestsACommand)
{
  auto session = sessionOf({});

  EXPECT_EQ(mistake(session, "help histroy"), "histroy is not a command; did you mean history?");
  EXPECT_EQ(mistake(session, "dance"), "dance is not a command; help lists the commands");
}

TEST(Verbs, AreDescribedInFull)
{
  for (const Verb& verb : allVerbs()) {
    SCOPED_TRACE(verb.name);
    EXPECT_THAT(verb.usage, StartsWith(verb.name));
    EXPECT_THAT(verb.example, StartsWith(verb.name));
    EXPECT_FALSE(std::string_view(verb.summary).empty() ||
                 std::string_view(verb.summary).ends_with('.'));
    EXPECT_TRUE(verb.details().ends_with('.'));
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
