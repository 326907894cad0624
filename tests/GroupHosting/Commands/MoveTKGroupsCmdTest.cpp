// SPDX-License-Identifier: MIT
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"

#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class MoveGroups : public ::testing::Test {
protected:
  static std::shared_ptr<RecordingHost<T>> hostOf(const std::string& names)
  {
    auto host = emptyHost<T>();
    std::vector<TKGroup<T>> groups;
    for (const char name : names)
      groups.push_back(group<T>(std::string(1, name), {T()}));
    host->replaceGroups(groups);
    return host;
  }

  static std::string namesOf(const std::vector<GroupView<T>>& groups)
  {
    std::string names;
    for (const auto& each : groups)
      names += each.name;
    return names;
  }

  /// The groups after they are moved among A, B, C, D and E.
  static std::string after(const std::string& moved, const std::string& target, bool insertBefore)
  {
    const auto host = hostOf("ABCDE");
    std::vector<Identifier> ids;
    for (const char name : moved)
      ids.push_back(name == '?' ? Identifier() : host->idOf(std::string(1, name)));
    MoveTKGroupsCmd<T>(host, ids, host->idOf(target), insertBefore).execute();
    return namesOf(host->groups());
  }
};
TYPED_TEST_SUITE(MoveGroups, ElementIdentifiers, KindName);

TYPED_TEST(MoveGroups, PutsThemBeforeTheTargetInTheOrderGiven)
{
  EXPECT_EQ(this->after("D", "B", true), "ADBCE");
  EXPECT_EQ(this->after("A", "D", true), "BCADE");
  EXPECT_EQ(this->after("EA", "C", true), "BEACD");
}

TYPED_TEST(MoveGroups, PutsThemAfterTheTargetInTheOrderGiven)
{
  EXPECT_EQ(this->after("D", "B", false), "ABDCE");
  EXPECT_EQ(this->after("A", "E", false), "BCDEA");
  EXPECT_EQ(this->after("EA", "C", false), "BCEAD");
}

TYPED_TEST(MoveGroups, GathersThemAroundATargetThatIsOneOfThem)
{
  EXPECT_EQ(this->after("ECA", "C", true), "BECAD");
  EXPECT_EQ(this->after("ECA", "C", false), "BECAD");
  EXPECT_EQ(this->after("AB", "A", false), "ABCDE");
  EXPECT_EQ(this->after("C", "C", true), "ABCDE");
}

TYPED_TEST(MoveGroups, SkipsUnknownIdsAndCountsRepeatedOnesOnce)
{
  EXPECT_EQ(this->after("?E?", "A", true), "EABCD");
  EXPECT_EQ(this->after("EDE", "A", true), "EDABC");
  EXPECT_EQ(this->after("EEEEDDDD", "A", true), "EDABC") << "more ids than are compared one by one";
}

TYPED_TEST(MoveGroups, HandsTheListOverWhenNothingMoves)
{
  const auto host = this->hostOf("ABC");
  const auto before = host->copyOfGroups();
  const auto moveTo = [&](const std::vector<Identifier>& ids, const Identifier& target) {
    MoveTKGroupsCmd<TypeParam>(host, ids, target, true).execute();
    EXPECT_TRUE(identical(host->copyOfGroups(), before));
    EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "setGroups"}));
  };

  moveTo({host->idOf("A")}, Identifier());
  moveTo({host->idOf("A")}, Identifier::getInvalidId());
  moveTo({host->idOf("A")}, host->idOf("B"));
  moveTo({Identifier()}, host->idOf("B"));
  moveTo({}, host->idOf("B"));
}

TYPED_TEST(MoveGroups, DoesNothingToAHostWithoutGroups)
{
  const auto host = emptyHost<TypeParam>();

  MoveTKGroupsCmd<TypeParam>(host, {Identifier()}, Identifier(), false).execute();

  EXPECT_TRUE(host->groups().empty());
}

TYPED_TEST(MoveGroups, TakesTheFirstOfGroupsWithEqualIds)
{
  auto host = this->hostOf("ABC");
  auto groups = host->copyOfGroups();
  groups.push_back(groups[1]);
  groups.back().setName("b", true);
  host->replaceGroups(groups);
  const auto id = groups.back().getId();

  MoveTKGroupsCmd<TypeParam>(host, {id, id}, host->idOf("A"), true).execute();
  EXPECT_EQ(this->namesOf(host->groups()), "BACb");

  MoveTKGroupsCmd<TypeParam>(host, {host->idOf("C")}, id, true).execute();
  EXPECT_EQ(this->namesOf(host->groups()), "CBAb");
}

TYPED_TEST(MoveGroups, KeepsIdsAndMembers)
{
  const auto host = this->hostOf("ABC");
  const auto before = host->copyOfGroups();

  MoveTKGroupsCmd<TypeParam>(host, {host->idOf("C")}, host->idOf("A"), true).execute();

  EXPECT_TRUE(identical(host->copyOfGroups(), {before[2], before[0], before[1]}));
}

}
}
