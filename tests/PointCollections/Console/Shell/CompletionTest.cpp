// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Completion.h"

#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CompletionOf : public ::testing::Test {
protected:
  explicit CompletionOf(std::shared_ptr<Files> files = diskFiles())
      : m_session(sessionOf({"Paris", "Paramaribo", "Prague", "New York", "New Salem", "Zürich",
                             "Zülpich", "say \"hi\"", "--odd"},
                            std::move(files)))
  {
    run(m_session, {"create Europe", "create \"North America\"", "create Asia"});
  }

  /// The line after the user has pressed Tab.
  std::string completed(const std::string& line)
  {
    const auto completion = complete(m_session, line);
    return completion.candidates.empty() ? line : line.substr(0, completion.from) + completion.text;
  }

  std::vector<std::string> candidates(std::string_view line)
  {
    return complete(m_session, line).candidates;
  }

  Session m_session;
};

class FileCompletion : public CompletionOf {
protected:
  FileCompletion()
      : CompletionOf(
            filesNamed({"cities.csv", "cities.tkpc", "notes.txt", "2", "maps/old maps/a.tkpc",
                        "maps/new.TKPC", ".hidden.tkpc", "\xFF.tkpc", "my plan.tkpc"}))
  {}

private:
  static std::shared_ptr<Files> filesNamed(std::initializer_list<const char*> names)
  {
    auto files = std::make_shared<MemoryFiles>();
    for (const auto* name : names)
      files->contents[name] = "";
    return files;
  }
};

TEST_F(CompletionOf, ACommand)
{
  EXPECT_EQ(completed("cr"), "create ");
  EXPECT_EQ(completed("h"), "h");
  EXPECT_THAT(candidates("h"), ElementsAre("history", "help"));
  EXPECT_EQ(candidates("").size(), allVerbs().size());
  EXPECT_EQ(completed("help hi"), "help history ");
}

TEST_F(CompletionOf, AGroup)
{
  EXPECT_EQ(completed("add Eu"), "add Europe ");
  EXPECT_EQ(completed("show No"), "show \"North America\" ");
  EXPECT_THAT(candidates("add "), ElementsAre("Europe", "\"North America\"", "Asia"));
}

TEST_F(CompletionOf, AnElement)
{
  EXPECT_EQ(completed("add Europe Pr"), "add Europe Prague ");
  EXPECT_EQ(completed("create New Pr"), "create New Prague ");
  EXPECT_EQ(completed("add Europe Par"), "add Europe Par");
  EXPECT_THAT(candidates("add Europe Par"), ElementsAre("Paris", "Paramaribo"));
  EXPECT_EQ(completed("add Europe P"), "add Europe P");
}

TEST_F(CompletionOf, AMemberOfAGroup)
{
  EXPECT_EQ(completed("remove Par"), "remove Par");
  run(m_session, {"add Asia \"New York\" Paris", "add Europe Prague"});

  EXPECT_THAT(candidates("remove "), ElementsAre("Prague", "\"New York\"", "Paris"));
  EXPECT_EQ(completed("remove N"), "remove \"New York\" ");
  EXPECT_EQ(completed("remove Paris P"), "remove Paris Prague ");
}

TEST_F(CompletionOf, MoreThanOneGroup)
{
  EXPECT_EQ(completed("delete A"), "delete Asia ");
  EXPECT_THAT(candidates("delete Asia "), ElementsAre("Europe", "\"North America\""));
}

TEST_F(CompletionOf, AMemberOfTheGroupThatIsChanged)
{
  run(m_session, {"add Asia \"New York\" Paris", "add Europe Prague"});

  EXPECT_THAT(candidates("add Asia --before "), ElementsAre("\"New York\"", "Paris"));
  EXPECT_THAT(candidates("add Europe Paris --after "), ElementsAre("Prague"));
  EXPECT_THAT(candidates("add @2 --after "), IsEmpty());
  EXPECT_THAT(candidates("add --before "), IsEmpty());
  EXPECT_THAT(candidates("add Nowhere --before "), IsEmpty());
}

TEST_F(CompletionOf, WhatIsMovedAndWhere)
{
  EXPECT_EQ(completed("move Pra"), "move Prague ");
  EXPECT_EQ(completed("move Prague Paris Par"), "move Prague Paris Paramaribo ");
  EXPECT_THAT(candidates("move Prague -"), ElementsAre("--before", "--after"));
  EXPECT_THAT(candidates("move Prague --after Par"), ElementsAre("Paris", "Paramaribo"));
  EXPECT_EQ(completed("move --before Paris Prag"), "move --before Paris Prague ");
}

TEST_F(CompletionOf, ANameWithBlanks)
{
  EXPECT_EQ(completed("add Europe Ne"), "add Europe \"New ");
  EXPECT_EQ(completed("add Europe \"New"), "add Europe \"New ");
  EXPECT_EQ(completed("add Europe \"New Y"), "add Europe \"New York\" ");
  EXPECT_EQ(completed("add Europe \"Pr"), "add Europe Prague ");
  EXPECT_EQ(completed("add Europe say"), R"(add Europe "say \"hi\"" )");
  EXPECT_EQ(completed("add Europe \"--"), "add Europe \"--odd\" ");
}

TEST_F(CompletionOf, ANameWhateverTheCase)
{
  EXPECT_EQ(completed("add europe"), "add Europe ");
  EXPECT_EQ(completed("add Europe new"), "add Europe \"New ");
}

TEST_F(CompletionOf, NamesThatDifferWithinACharacter)
{
  EXPECT_EQ(completed("add Europe Z"), "add Europe Zü");
}

TEST_F(CompletionOf, LeavesOutElementsThatTheLineNames)
{
  EXPECT_EQ(completed("add Europe Paris Par"), "add Europe Paris Paramaribo ");
  EXPECT_EQ(completed("add Europe \"New York\" New"), "add Europe \"New York\" \"New Salem\" ");
  EXPECT_EQ(completed("move Prague --before Pr"), "move Prague --before Prague ");
}

TEST_F(CompletionOf, AnOption)
{
  EXPECT_EQ(completed("add Europe --b"), "add Europe --before ");
  EXPECT_THAT(candidates("add Europe -"), ElementsAre("--at", "--before", "--after", "--end"));
  EXPECT_THAT(candidates("add Europe --end --"), IsEmpty());
  EXPECT_THAT(candidates("move Prague --before Paris --"), IsEmpty());
  EXPECT_THAT(candidates("show Europe --"), ElementsAre("--places", "--json"));
  EXPECT_THAT(candidates("show --all E"), IsEmpty());
  EXPECT_EQ(completed("show --a"), "show --all ");
}

TEST_F(CompletionOf, TheValueOfAnOption)
{
  EXPECT_EQ(completed("move Paris --before Pr"), "move Paris --before Prague ");
  EXPECT_THAT(candidates("add Europe --at "), IsEmpty());
  EXPECT_EQ(completed("add --at 1 Eu"), "add --at 1 Europe ");
}

TEST_F(FileCompletion, NamesWhatCanBeOpened)
{
  EXPECT_THAT(candidates("open "),
              ElementsAre("cities.csv", "cities.tkpc", "maps/", "\"my plan.tkpc\""));
  EXPECT_EQ(completed("open ci"), "open cities.");
  EXPECT_EQ(completed("open cities.t"), "open cities.tkpc ");
  EXPECT_EQ(completed("open n"), "open n");
  EXPECT_EQ(completed("open m"), "open m");
  EXPECT_EQ(completed("open my"), "open \"my plan.tkpc\" ");
}

TEST_F(FileCompletion, NamesWhatCanBeSaved)
{
  EXPECT_EQ(completed("save ci"), "save cities.tkpc ");
  EXPECT_EQ(completed("export ci"), "export cities.csv ");
  EXPECT_EQ(completed("save --overwrite cities.t"), "save --overwrite cities.tkpc ");
  EXPECT_EQ(completed("save cities.tkpc --"), "save cities.tkpc --overwrite ");
}

TEST_F(FileCompletion, GoesOnInFolders)
{
  EXPECT_EQ(completed("open ma"), "open maps/");
  EXPECT_THAT(candidates("open maps/"), ElementsAre("maps/new.TKPC", "\"maps/old maps/\""));
  EXPECT_EQ(completed("open maps/o"), "open \"maps/old maps/");
  EXPECT_EQ(completed("open \"maps/old maps/"), "open \"maps/old maps/a.tkpc\" ");
  EXPECT_THAT(candidates("open none/"), IsEmpty());
}

TEST_F(CompletionOf, AMemberAfterItsGroup)
{
  run(m_session, {"add Asia \"New York\" Paris Prague", "add \"North America\" \"New Salem\""});

  EXPECT_EQ(completed("add Europe Asia:Pa"), "add Europe Asia:Paris ");
  EXPECT_THAT(candidates("add Europe Asia:P"), ElementsAre("Paris", "Prague"));
  EXPECT_EQ(completed("add Europe Asia:"), "add Europe Asia:");
  EXPECT_EQ(completed("remove Asia:Ne"), "remove Asia:\"New York\" ");
  EXPECT_EQ(completed("select \"North America\":"), "select \"North America\":\"New Salem\" ");
  EXPECT_EQ(completed("select \"North America\":\"New S"),
            "select \"North America\":\"New Salem\" ");
  EXPECT_EQ(completed("select @3:Pa"), "select @3:Paris ");
  EXPECT_THAT(candidates("select *:New"), ElementsAre("\"New Salem\"", "\"New York\""));
  EXPECT_THAT(candidates("select None:P"), IsEmpty());
}

TEST_F(CompletionOf, AMemberAfterItsGroupWhereverOneIsTaken)
{
  run(m_session, {"add Asia \"New York\" Paris Prague", "add Europe Paramaribo"});

  EXPECT_EQ(completed("show Asia:Pa"), "show Asia:Paris ");
  EXPECT_EQ(completed("show Paris Asia:N"), "show Paris Asia:\"New York\" ");
  EXPECT_THAT(candidates("show Europe:"), ElementsAre("Paramaribo"));
  EXPECT_THAT(candidates("show --all Europe:"), IsEmpty());
  EXPECT_EQ(completed("add Asia Zürich --before Asia:Pa"), "add Asia Zürich --before Asia:Paris ");
  EXPECT_EQ(completed("add Europe --after *:P"), "add Europe --after *:Paramaribo ");
  EXPECT_THAT(candidates("add Europe --after Asia:"), IsEmpty());
}

TEST_F(CompletionOf, AnUngroupedElementAfterAColon)
{
  run(m_session, {"add Asia Paris Prague"});

  EXPECT_EQ(completed("add Europe :Pa"), "add Europe :Paramaribo ");
  EXPECT_THAT(candidates("remove :Pa"), IsEmpty()) << "it is in no group";
}

TEST_F(CompletionOf, AMemberOfSeveralGroupsOnce)
{
  run(m_session, {"add Europe Prague"});
  auto groups = m_session.editor.document()->getGroups();
  groups[2].addGroupMember(groups[0].getGroupMembers().front());
  m_session.editor.document()->setGroups(groups);

  EXPECT_EQ(completed("select *:Pr"), "select *:Prague ");
}

TEST_F(CompletionOf, NoMemberThatTheDocumentDoesNotHave)
{
  auto groups = m_session.editor.document()->getGroups();
  groups[0].addGroupMember(GUIdentifier());
  m_session.editor.document()->setGroups(groups);

  EXPECT_THAT(candidates("select Europe:"), IsEmpty());
}

TEST(CompletionAfterAColon, PutsNamesInQuotesThatReadAsPlaces)
{
  auto session = sessionOf({"5", "2-5", "2-", "x-1"});
  run(session, {"create Europe 5 2-5 2- x-1"});
  const auto candidates = [&](std::string_view line) { return complete(session, line).candidates; };

  EXPECT_THAT(candidates("select Europe:"), ElementsAre("\"2-\"", "\"2-5\"", "\"5\"", "x-1"));
  EXPECT_EQ(complete(session, "select Europe:5").text, "\"5\" ");
  EXPECT_THAT(candidates("select "), ::testing::Contains("5")) << "it is a name there";
}

TEST_F(FileCompletion, NamesWhatCanHoldNames)
{
  EXPECT_EQ(completed("create G @n"), "create G @notes.txt ");
  EXPECT_EQ(completed("create G @ma"), "create G @maps/");
  EXPECT_EQ(completed("show @no"), "show @notes.txt ");
  EXPECT_EQ(completed("show @2"), "show @\"2\" ") << "@2 is the second group";
  EXPECT_EQ(completed("create G @my"), "create G @my");
  EXPECT_THAT(candidates("create @n"), IsEmpty());
}

TEST_F(FileCompletion, NamesHiddenFilesWhenAskedTo)
{
  EXPECT_EQ(completed("open .h"), "open .hidden.tkpc ");
}

TEST_F(FileCompletion, NamesWhatAnAnswerTakes)
{
  const auto answered = [&](std::string_view line) {
    return completeAnswer(m_session, {"save", "discard", "cancel"}, line).candidates;
  };
  EXPECT_THAT(answered(""), ElementsAre("save", "discard", "cancel"));
  EXPECT_THAT(answered("di"), ElementsAre("discard"));
  EXPECT_THAT(answered("save c"), ElementsAre("cities.tkpc"));
  EXPECT_THAT(answered("discard c"), IsEmpty());
  EXPECT_THAT(answered("open c"), IsEmpty());
}

TEST_F(CompletionOf, NothingWhereAnythingIsAllowed)
{
  EXPECT_THAT(candidates("create "), IsEmpty());
  EXPECT_THAT(candidates("rename Europe "), IsEmpty());
  EXPECT_THAT(candidates("sort "), IsEmpty());
  EXPECT_THAT(candidates("undo "), IsEmpty());
  EXPECT_THAT(candidates("quit "), IsEmpty());
  EXPECT_THAT(candidates("history 3 "), IsEmpty());
}

TEST_F(CompletionOf, NothingInALineThatIsWrong)
{
  for (const std::string line : {"dance ", "\"", "add Europe x\"y ", "add \xFF", "add X Y Q", "#"})
    EXPECT_EQ(completed(line), line);
}

TEST_F(CompletionOf, KeepsWhatIsTypedWhenNamesDifferInCaseOnly)
{
  run(m_session, {"create eUROPA"});

  EXPECT_EQ(completed("add EU"), "add EU");
  EXPECT_EQ(completed("add \"EU"), "add \"EU");
  EXPECT_THAT(candidates("add EU"), ElementsAre("Europe", "eUROPA"));
  EXPECT_EQ(completed("create A PAR"), "create A Par");
}

class CompletionOfAnEscape : public ::testing::Test {
protected:
  std::string completed(const std::string& line)
  {
    const auto completion = complete(m_session, line);
    return completion.candidates.empty() ? line : line.substr(0, completion.from) + completion.text;
  }

  Session m_session =
      sessionOf({"\\folder", "a\u200B1", "a\u200B2", "a\uFEFF", "b\u200B", "b\uFEFF", "c\u200B"});
};

TEST_F(CompletionOfAnEscape, GoesOnWithWhatIsTyped)
{
  EXPECT_EQ(completed(R"(where "\)"), R"(where "\\folder" )");
  EXPECT_EQ(completed(R"(where "a\u{F)"), R"(where "a\u{FEFF}" )");
  EXPECT_EQ(completed(R"(where "a\u)"), R"(where "a\u)");
  EXPECT_EQ(completed(R"(where "a\u{2)"), R"(where "a\u{200B})");
  EXPECT_EQ(completed(R"(where :"c\u{200B)"), R"(where :"c\u{200B}" )");
}

TEST_F(CompletionOfAnEscape, KeepsWhatNoNameGoesOnWith)
{
  for (const std::string line :
       {R"(where "\u{FE)", R"(where "\x)", R"(where "b\u{)", R"(where "a\x4)"})
    EXPECT_EQ(completed(line), line);
}

TEST_F(CompletionOf, KeepsAnOpenQuoteWhenNamesHaveNothingInCommon)
{
  EXPECT_EQ(completed("add Europe \""), "add Europe \"");
  EXPECT_EQ(completed("add Europe "), "add Europe ");
}

}
}
