// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/Selection.h"

#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Language.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

/// Europe, Asia and an empty group; Lima, "New York", "a*b" and "x:y" are ungrouped.
class ASelection : public ::testing::Test {
protected:
  ASelection()
  {
    m_document->setGroups({group("Europe", {"Paris", "Berlin", "Bern", "Rome"}),
                           group("Asia", {"Tokyo", "Bangkok"}), group("North Sea", {"Oslo"}),
                           group("Empty", {})});
  }

  TKGroup<GUIdentifier> group(const std::string& name, const std::vector<std::string>& names) const
  {
    TKGroup<GUIdentifier> result(name);
    std::vector<GUIdentifier> members;
    for (const auto& each : names)
      members.push_back(m_document->findByName(each)->id);
    result.addGroupMembersAtIndex(members, -1);
    return result;
  }

  /// The names of what the words select: "Paris, Rome".
  std::string select(std::string_view words)
  {
    std::string result;
    for (const auto& name :
         namesOf(*m_document, Selection(*m_document, m_files).elements(splitWords(words))))
      result += (result.empty() ? "" : ", ") + name;
    return result;
  }

  std::string mistake(std::string_view words)
  {
    return mistakeIn([&] { select(words); });
  }

  std::shared_ptr<PointDocument> m_document =
      documentOf({"Bangkok", "Berlin", "Bern", "Lima", "New York", "Oslo", "Paris", "Rome", "Tokyo",
                  "a*b", "x:y", "3-5", "@home", "\"q\""});
  MemoryFiles m_files;
};

TEST_F(ASelection, TellsMistakesInTheOrderOfTheLanguage)
{
  const Language language(
      {{"nothing in {} matches {}", "{1} passt auf nichts in {0}"},
       {"there is no group at place {1}; there is {0} group", "von {0} Gruppen nicht die {1}."},
       {"the place of a group after @ is {}; expected a whole number from 1 up", "{}: ab 1"},
       {"; {}", ", denn {}"}});

  EXPECT_EQ(mistake("Asia:x*"),
            "x* passt auf nichts in Asia, denn find looks for a part of a name");
  EXPECT_EQ(mistake("@9:*"), "von 4 Gruppen nicht die 9.");
  EXPECT_EQ(mistake("@0:*"), "0: ab 1");
}

TEST_F(ASelection, TakesNamesInTheOrderGiven)
{
  EXPECT_EQ(select("Rome \"New York\" Bern"), "Rome, New York, Bern");
  EXPECT_EQ(select(""), "");
}

TEST_F(ASelection, TakesPatternsInTheOrderOfTheDocument)
{
  EXPECT_EQ(select("B*"), "Bangkok, Berlin, Bern");
  EXPECT_EQ(select("?er*n"), "Berlin, Bern");
  EXPECT_EQ(select("\"New \"*"), "New York");
}

TEST_F(ASelection, TakesMembersOfAGroupInTheirOrder)
{
  EXPECT_EQ(select("Europe:*"), "Paris, Berlin, Bern, Rome");
  EXPECT_EQ(select("\"North Sea\":*"), "Oslo");
  EXPECT_EQ(select("@2:*"), "Tokyo, Bangkok");
  EXPECT_EQ(select("Europe:B*"), "Berlin, Bern");
  EXPECT_EQ(select("Europe:Rome"), "Rome");
}

TEST_F(ASelection, TakesMembersOfAllGroupsThatMatch)
{
  EXPECT_EQ(select("*a:*"), "Tokyo, Bangkok, Oslo");
  EXPECT_EQ(select("*:1"), "Paris, Tokyo, Oslo");
}

TEST_F(ASelection, TakesUngroupedElements)
{
  EXPECT_EQ(select(":L*"), "Lima");
  EXPECT_EQ(select(":1-2"), "Lima, New York");
  EXPECT_EQ(select(":*"), "Lima, New York, a*b, x:y, 3-5, @home, \"q\"");
}

TEST_F(ASelection, TellsAGroupWithoutANameFromTheUngroupedElements)
{
  EXPECT_EQ(mistake("\"\":*"), "there is no group named \"\"; show lists the groups");
  m_document->setGroups({group("", {"Oslo", "Rome"})});

  EXPECT_EQ(select("\"\":*"), "Oslo, Rome");
  EXPECT_EQ(select("\"\":2"), "Rome");
  EXPECT_EQ(select(":B*"), "Bangkok, Berlin, Bern");
}

TEST_F(ASelection, TakesPlaces)
{
  EXPECT_EQ(select("Europe:2"), "Berlin");
  EXPECT_EQ(select("Europe:2-3"), "Berlin, Bern");
  EXPECT_EQ(select("Europe:3-"), "Bern, Rome");
}

TEST_F(ASelection, TakesNamesWithSpecialCharactersInQuotes)
{
  EXPECT_EQ(select(R"("a*b" "x:y" "@home" "3-5")"), "a*b, x:y, @home, 3-5");
  EXPECT_EQ(select(R"(:"3-5" :"a*"*)"), "3-5, a*b");
  EXPECT_EQ(select("3-5"), "3-5");
}

TEST_F(ASelection, CountsAnElementOnce)
{
  EXPECT_EQ(select("Bern B* Europe:*"), "Bern, Bangkok, Berlin, Paris, Rome");
  EXPECT_EQ(mistake("Bern Rome Bern"), "Bern is given twice; name each element once");
}

TEST_F(ASelection, TakesNamesFromAFile)
{
  m_files.contents["names.txt"] = "\xEF\xBB\xBFRome\r\n\nNew York\na*b\n\"\\\"q\\\"\"\nRome";
  m_files.contents["my names"] = "Bern\n";

  EXPECT_EQ(select("@names.txt"), "Rome, New York, a*b, \"q\"");
  EXPECT_EQ(select("@\"my names\" Rome"), "Bern, Rome");
}

TEST_F(ASelection, RefusesAFileWithAMistake)
{
  m_files.contents["names.txt"] = "Rome\nPari\n";
  m_files.contents["quoted.txt"] = "\"Rome\" Paris\n";
  m_files.contents["open.txt"] = "\n\"Rome\n";
  m_files.contents["empty.txt"] = "\n\n";

  EXPECT_EQ(mistake("@names.txt"),
            "names.txt:2: there is no element named Pari; did you mean Paris?");
  EXPECT_EQ(mistake("@quoted.txt"),
            "quoted.txt:1: text after the closing quote; expected one name on the line");
  EXPECT_EQ(mistake("@open.txt"),
            "open.txt:2: column 1: this quote is never closed; add a \" after the name");
  EXPECT_EQ(mistake("@empty.txt"), "empty.txt has no names; expected one on each line");
  EXPECT_NE(mistake("@none.txt"), "no mistake");
  EXPECT_EQ(mistake("@"), "the name of a file is missing after @; write @names.txt");
  EXPECT_EQ(mistake("@2"), "@2 is the place of a group; write @2:* for its members, or @./2 for a "
                           "file");
}

TEST_F(ASelection, RefusesAFileThatIsNotUtf8)
{
  m_files.contents["latin.txt"] = "Rome\r\n\nS\xE3o Paulo\n";
  m_files.contents["utf16.txt"] = std::string("\xFF\xFER\0o\0m\0e\0", 10);
  m_files.contents["unmarked.txt"] = std::string("R\0o\0m\0e\0\n\0", 10);

  EXPECT_EQ(mistake("@latin.txt"),
            "latin.txt:3: the byte \\xE3 is not UTF-8; save the file as UTF-8");
  EXPECT_EQ(mistake("@utf16.txt"), "utf16.txt: this text is in UTF-16; save it as UTF-8");
  EXPECT_EQ(mistake("@unmarked.txt"), "unmarked.txt: this text is in UTF-16; save it as UTF-8");
}

TEST_F(ASelection, SuggestsAPatternWhenNothingMatches)
{
  EXPECT_EQ(mistake("Pariss*"), "nothing matches Pariss*; did you mean Paris*?");
  EXPECT_EQ(mistake("paris*"), "nothing matches paris*; did you mean Paris*?");
  EXPECT_EQ(mistake("Newyork*"), "nothing matches Newyork*; did you mean \"New York\"*?");
  EXPECT_EQ(mistake("Europe:Tok*"),
            "nothing in Europe matches Tok*; find looks for a part of a name");
  EXPECT_EQ(mistake("*zz*"), "nothing matches *zz*; find looks for a part of a name");
  EXPECT_EQ(mistake("Eurape*:*"), "no group matches Eurape*; did you mean Europe*?");
}

TEST_F(ASelection, RefusesWhatSelectsNothing)
{
  EXPECT_EQ(mistake("Empty:*"), "there are no elements in Empty");
  EXPECT_EQ(mistake("Europe:Tokyo"), "Tokyo is not in Europe; where Tokyo tells where it is");
  EXPECT_EQ(mistake("Europe:5"), "there is no element at place 5 in Europe; the last place is 4");
  EXPECT_EQ(mistake("Europe:2-9"), "there is no element at place 9 in Europe; the last place is 4");
  EXPECT_EQ(mistake("Europe:9-"), "there is no element at place 9 in Europe; the last place is 4");
  EXPECT_EQ(mistake("*:9"), "there is no element at place 9 in 4 groups");
  EXPECT_EQ(mistake("Europa:*"), "there is no group named Europa; did you mean Europe?");
}

TEST_F(ASelection, RefusesPlacesThatMakeNoSense)
{
  EXPECT_EQ(mistake("Europe:0"), "the first place is 0; expected a whole number from 1 up");
  EXPECT_EQ(mistake("Europe:3-2"), "the places 3-2 are backwards; write 2-3");
  EXPECT_EQ(mistake("Europe:99999999999999999999"),
            "there is no element at place 99999999999999999999 in Europe; the last place is 4");
  EXPECT_EQ(mistake("Europe:2-99999999999999999999"),
            "there is no element at place 99999999999999999999 in Europe; the last place is 4");
  EXPECT_EQ(mistake(":99999999999999999999-7"),
            "the places 99999999999999999999-7 are backwards; write 7-99999999999999999999");
  EXPECT_EQ(mistake("*:99999999999999999999-"),
            "there is no element at place 99999999999999999999 in 4 groups");
  EXPECT_EQ(mistake("Europe:"), "Europe: lacks what is after the colon; write Europe:* for all "
                                "members, or Europe:1-3 for the first three");
}

TEST_F(ASelection, ExplainsNamesThatNeedQuotes)
{
  EXPECT_EQ(mistake("x:y"), "\"x:y\" is the name of an element, but has a meaning without quotes; "
                            "write \"x:y\" for the element");
  EXPECT_EQ(mistake("New York"), "a name with blanks needs quotes; write \"New York\"");
  EXPECT_EQ(mistake("Europe"), "Europe is a group, not an element; write Europe:* for its members");
}

TEST_F(ASelection, FindsOneElementWhereOneIsWanted)
{
  const Selection selection(*m_document, m_files);

  EXPECT_EQ(m_document->getElementName(selection.element({"Europe:1"})), "Paris");
  EXPECT_EQ(mistakeIn([&] { selection.element({"B*"}); }), "B* selects 3 elements; name one");
}

}
}
