// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"

#include "Support/GlobalLocale.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <locale>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

using Names = std::vector<std::string>;

template <class T>
class SortGroups : public ::testing::Test {
protected:
  /// The names of groups after they have been sorted.
  static Names sorted(const Names& names)
  {
    const auto host = emptyHost<T>();
    std::vector<TKGroup<T>> groups;
    for (const auto& name : names)
      groups.push_back(TKGroup<T>(name));
    host->replaceGroups(groups);
    SortTKGroupsAlphabeticallyCmd<T>(host).execute();
    Names result;
    for (const auto& each : host->groups())
      result.push_back(each.name);
    return result;
  }

  /// The names of a group's members after it has been sorted.
  static Names sortedMembers(const Names& names)
  {
    auto holder = TKGroup<T>(std::string("Group"));
    std::vector<std::pair<T, std::string>> named;
    for (const auto& name : names) {
      named.emplace_back(T(), name);
      holder.addGroupMember(named.back().first);
    }
    const auto host = hostWith(holder);
    host->nameElements(named);
    SortTKGroupsAlphabeticallyCmd<T>(host).execute();
    const auto groups = host->groups();
    Names result;
    for (const auto& member : groups.front().members)
      result.push_back(host->getElementName(member));
    return result;
  }
};
TYPED_TEST_SUITE(SortGroups, ElementIdentifiers, KindName);

/// Lowers single bytes only: 'z' comes out as '!', which sorts first. Ranges are left alone.
class BytewiseLetters : public std::ctype<char> {
protected:
  char do_tolower(char letter) const override { return letter == 'z' ? '!' : letter; }
  const char* do_tolower(char*, const char* end) const override { return end; }
};

TYPED_TEST(SortGroups, SortsGroupsByNameWithoutRegardToCase)
{
  EXPECT_EQ(this->sorted({"beta", "Alpha", "gamma"}), (Names{"Alpha", "beta", "gamma"}));
}

TYPED_TEST(SortGroups, ReadsDigitsAsBytesAndPutsAPrefixFirst)
{
  EXPECT_EQ(this->sorted({"Group9", "Group10", "Group1", "Group"}),
            (Names{"Group", "Group1", "Group10", "Group9"}));
}

TYPED_TEST(SortGroups, PutsBytesOutsideAsciiAfterLettersAndDigits)
{
  EXPECT_EQ(this->sorted({"\xC3\x84pfel", "zebra", "9", "\xC2\x80"}),
            (Names{"9", "zebra", "\xC2\x80", "\xC3\x84pfel"}));
}

TYPED_TEST(SortGroups, LeavesNamesThatDifferInCaseOnlyInAnyOrder)
{
  auto names = this->sorted({"Test", "b", "test", "A"});

  EXPECT_EQ(names.front(), "A");
  EXPECT_EQ(names[1], "b");
  std::sort(names.begin() + 2, names.end());
  EXPECT_EQ(Names(names.begin() + 2, names.end()), (Names{"Test", "test"}));
}

TYPED_TEST(SortGroups, SortsMembersByTheNamesThatTheHostGivesThem)
{
  EXPECT_EQ(this->sortedMembers({"Zeta", "alpha", "Beta10", "beta9"}),
            (Names{"alpha", "Beta10", "beta9", "Zeta"}));
}

TYPED_TEST(SortGroups, SortsMembersByWhateverByteTheirNamesDifferIn)
{
  using namespace std::string_literals;
  const Names sorted{"",
                     "\0"s,
                     "\0a"s,
                     "element",
                     "element\0"s,
                     "element 1",
                     "element 10",
                     "element 2",
                     "element 2b",
                     "element \xC3",
                     "\xC3"
                     "element"};
  Names shuffled(sorted.rbegin(), sorted.rend());
  std::swap(shuffled[2], shuffled[7]);

  EXPECT_EQ(this->sortedMembers(shuffled), sorted);
}

TYPED_TEST(SortGroups, SortsMembersWhoseNamesBeginAlike)
{
  const Names sorted{"Pumping station", "Pumping station 1", "Pumping station 10000000 a",
                     "Pumping station 10000000 b", "Pumping station 2"};

  EXPECT_EQ(this->sortedMembers(Names(sorted.rbegin(), sorted.rend())), sorted);
  EXPECT_EQ(this->sortedMembers({"Pump", "Pump", "Pump"}), (Names{"Pump", "Pump", "Pump"}));
}

TYPED_TEST(SortGroups, SortsManyGroupsWithTheirMembersAndIds)
{
  const auto [a, b, c, d] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("second", {a, b}), group("FIRST", {d, c}));
  host->nameElements({{a, "2"}, {b, "1"}, {c, "3"}, {d, "4"}});
  const auto second = host->idOf("second");
  const auto first = host->idOf("FIRST");

  SortTKGroupsAlphabeticallyCmd<TypeParam>(host).execute();

  EXPECT_EQ(host->groups(), list(group("FIRST", {c, d}), group("second", {b, a})));
  EXPECT_EQ(host->idOf("second"), second);
  EXPECT_EQ(host->idOf("FIRST"), first);
}

TYPED_TEST(SortGroups, LowersGroupsNamesWithoutTheLocale)
{
  const GlobalLocale strange(std::locale(std::locale::classic(), new BytewiseLetters));

  EXPECT_EQ(this->sorted({"z", "B", "a"}), (Names{"a", "B", "z"}));
}

TYPED_TEST(SortGroups, LowersMembersNamesByteByByteWithTheGlobalLocale)
{
  const GlobalLocale strange(std::locale(std::locale::classic(), new BytewiseLetters));

  EXPECT_EQ(this->sortedMembers({"a", "B", "z", "bz", "b"}), (Names{"z", "B", "a", "b", "bz"}));
}

TYPED_TEST(SortGroups, UsesTheLocaleOfTheMomentOfExecution)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a, b}));
  host->nameElements({{a, "a"}, {b, "z"}});
  SortTKGroupsAlphabeticallyCmd<TypeParam> command(host);
  {
    const GlobalLocale strange(std::locale(std::locale::classic(), new BytewiseLetters));
    command.execute();
    EXPECT_EQ(host->groups(), list(group("A", {b, a})));
  }

  command.execute();

  EXPECT_EQ(host->groups(), list(group("A", {a, b})));
}

TYPED_TEST(SortGroups, BringsTheMembershipIntoLineWithWhatTheHostLists)
{
  const auto [listed, unlisted, added] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {unlisted, listed}));
  host->listMembersBy([listed = listed, added = added](const Identifier&) {
    return std::vector<std::pair<TypeParam, std::string>>{{listed, "b"}, {added, "a"}};
  });
  SortTKGroupsAlphabeticallyCmd<TypeParam> command(host);

  command.execute();
  EXPECT_EQ(host->groups(), list(group("A", {added, listed})));

  command.undo();
  EXPECT_EQ(host->groups(), list(group("A", {unlisted, listed})));
}

TYPED_TEST(SortGroups, EmptiesAGroupForWhichTheHostListsNobody)
{
  const auto [a] = distinct<TypeParam, 1>();
  const auto host = hostWith(group("A", {a}));
  host->listMembersBy(
      [](const Identifier&) { return std::vector<std::pair<TypeParam, std::string>>(); });

  SortTKGroupsAlphabeticallyCmd<TypeParam>(host).execute();

  EXPECT_EQ(host->groups(), list(group<TypeParam>("A", {})));
}

TYPED_TEST(SortGroups, KeepsTheFirstPlaceOfAMemberThatTheHostListsTwice)
{
  const auto [a, m] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a, m}));
  host->listMembersBy([a = a, m = m](const Identifier&) {
    return std::vector<std::pair<TypeParam, std::string>>{{m, "c"}, {a, "b"}, {m, "a"}};
  });

  SortTKGroupsAlphabeticallyCmd<TypeParam>(host).execute();

  EXPECT_EQ(host->groups(), list(group("A", {m, a})));
}

TYPED_TEST(SortGroups, AsksForTheMembersOfEveryGroupInTheNewOrder)
{
  const auto host = hostWith(group<TypeParam>("b", {}), group<TypeParam>("a", {}));
  std::vector<Identifier> asked;
  host->listMembersBy([&asked](const Identifier& id) {
    asked.push_back(id);
    return std::vector<std::pair<TypeParam, std::string>>();
  });

  SortTKGroupsAlphabeticallyCmd<TypeParam>(host).execute();

  EXPECT_EQ(asked, (std::vector<Identifier>{host->idOf("a"), host->idOf("b")}));
}

TYPED_TEST(SortGroups, HandsASortedListOverAllTheSame)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}), group("B", {b}));
  const auto before = host->copyOfGroups();

  SortTKGroupsAlphabeticallyCmd<TypeParam>(host).execute();

  EXPECT_EQ(host->takeCalls(),
            (Calls{"getGroups", "getGroupMemberNames", "getGroupMemberNames", "setGroups"}));
  EXPECT_TRUE(identical(host->copyOfGroups(), before));
}

TYPED_TEST(SortGroups, HandsAnEmptyListOverWhenThereAreNoGroups)
{
  const auto host = emptyHost<TypeParam>();
  SortTKGroupsAlphabeticallyCmd<TypeParam> command(host);

  command.execute();
  EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "setGroups"}));
}

TYPED_TEST(SortGroups, HandsAnEmptyListOverBeforeItIsExecuted)
{
  const auto host = hostWith(group<TypeParam>("A", {}));
  SortTKGroupsAlphabeticallyCmd<TypeParam> command(host);

  command.redo();

  EXPECT_TRUE(host->groups().empty());
}

}
}
