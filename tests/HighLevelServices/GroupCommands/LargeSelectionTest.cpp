// SPDX-License-Identifier: MIT
// Selections of thousands, against the plain walk that takes one element after another.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "Support/Allocations.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class LargeSelection : public ::testing::Test {
protected:
  using Groups = std::vector<TKGroup<T>>;

  static constexpr std::size_t size = 3000;
  static constexpr std::size_t targetGroup = 1;

  /// Four groups that share members and hold some twice; elements that repeat, and that no group
  /// has.
  LargeSelection()
  {
    const std::vector<T> ids(size);
    for (std::size_t i = 0; i < 4; ++i) {
      groups.emplace_back("Group " + std::to_string(i));
      groups.back().addGroupMembersAtIndex(someOf(ids, size / 2 + 1), -1);
    }
    elements = someOf(ids, size / 2);
    elements.resize(elements.size() + 5);
    host->replaceGroups(groups);
  }

  std::vector<T> someOf(const std::vector<T>& ids, std::size_t count)
  {
    std::vector<T> some;
    for (std::size_t i = 0; i < count; ++i)
      some.push_back(ids[m_random() % ids.size()]);
    return some;
  }

  void takeOutOfFirstHolder(const T& element)
  {
    for (auto& group : groups) {
      if (group.removeGroupMember(element))
        return;
    }
  }

  /// Adds the elements to the target group, one after another.
  void walkIn(int index)
  {
    auto& target = groups[targetGroup];
    for (const T& element : elements) {
      const auto& members = target.getGroupMembers();
      const auto found = std::find(members.begin(), members.end(), element);
      if (found != members.end() && found - members.begin() < index)
        --index;
      takeOutOfFirstHolder(element);
    }
    target.addGroupMembersAtIndex(elements, index);
  }

  std::shared_ptr<RecordingHost<T>> host = emptyHost<T>();
  Groups groups;
  std::vector<T> elements;

private:
  std::mt19937 m_random{1}; // NOLINT: the same in every run
};
TYPED_TEST_SUITE(LargeSelection, ElementIdentifiers, KindName);

TYPED_TEST(LargeSelection, IsTakenOutOfItsFirstHolders)
{
  for (const auto& element : this->elements)
    this->takeOutOfFirstHolder(element);

  RemoveFromTKGroupCmd<TypeParam>(this->host, this->elements).execute();

  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->groups));
}

TYPED_TEST(LargeSelection, MayBeAFewOfManyMembers)
{
  const std::vector<TypeParam> members(100'000);
  this->groups.resize(1);
  this->groups[0].clear();
  this->groups[0].addGroupMembersAtIndex(members, -1);
  this->host->replaceGroups(this->groups);
  this->elements = {members[70'000], members[99'999], TypeParam(), members[0], members[5]};
  for (const auto& element : this->elements)
    this->takeOutOfFirstHolder(element);

  RemoveFromTKGroupCmd<TypeParam>(this->host, this->elements).execute();

  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->groups));
}

TYPED_TEST(LargeSelection, MayHaveHundredsOfThousandsOfElements)
{
  constexpr std::size_t count = GroupLists::Hashable<TypeParam> ? 300'000 : 5'000;
  this->elements = std::vector<TypeParam>(count);
  this->groups.resize(1);
  this->groups[0].clear();
  this->groups[0].addGroupMembersAtIndex(this->elements, -1);
  this->host->replaceGroups(this->groups);
  this->elements.push_back(this->elements.front());
  this->elements.erase(this->elements.begin() + count / 2);
  const auto left = this->groups[0].getGroupMemberAtIndex(count / 2);

  RemoveFromTKGroupCmd<TypeParam>(this->host, this->elements).execute();

  EXPECT_EQ(this->host->groups()[0].members, std::vector<TypeParam>{left});
}

TYPED_TEST(LargeSelection, IsAddedAtAnyIndex)
{
  const auto before = this->groups;
  const auto id = before[this->targetGroup].getId();
  for (const int index : {-1, 0, 1, 700, 1500, 1600, 100'000}) {
    this->groups = before;
    this->walkIn(index);
    this->host->replaceGroups(before);
    AddToTKGroupCmd<TypeParam> command(this->host, this->elements, id);
    command.setInsertIndex(index);

    command.execute();

    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->groups)) << "index " << index;
  }
}

TYPED_TEST(LargeSelection, GoesToANewGroupOnce)
{
  TKGroup<TypeParam> expected;
  for (const auto& element : this->elements) {
    this->takeOutOfFirstHolder(element);
    expected.addGroupMember(element);
  }

  CreateTKGroupCmd<TypeParam>(this->host, this->elements, "New").execute();

  auto found = this->host->copyOfGroups();
  EXPECT_EQ(found.back().getGroupMembers(), expected.getGroupMembers());
  found.pop_back();
  EXPECT_TRUE(identical(found, this->groups));
}

TYPED_TEST(LargeSelection, IsMovedBesideAMember)
{
  const auto target = this->groups[this->targetGroup].getGroupMemberAtIndex(800);
  std::vector<TypeParam> once;
  for (const auto& element : this->elements) {
    if (std::find(once.begin(), once.end(), element) == once.end() && !(element == target))
      once.push_back(element);
  }
  const auto repeated = once.size();
  this->elements = once;
  for (std::size_t i = 0; i < repeated; i += 2)
    this->elements.push_back(once[i]);
  AddToTKGroupCmd<TypeParam> add(this->host, once, this->groups[this->targetGroup].getId());
  const auto& members = this->groups[this->targetGroup].getGroupMembers();
  const auto first = std::find(members.begin(), members.end(), target);
  ASSERT_EQ(this->groups[0].isInGroup(target), false) << "the target group is its first holder";
  add.setInsertIndex(static_cast<int>(first - members.begin()));
  add.execute();
  const auto expected = this->host->copyOfGroups();
  this->host->replaceGroups(this->groups);

  MoveTKGroupElementsCmd<TypeParam>(this->host, this->elements, target, true).execute();

  EXPECT_TRUE(identical(this->host->copyOfGroups(), expected));
}

TYPED_TEST(LargeSelection, OfGroupsIsRemovedAtOnce)
{
  std::vector<TKGroup<TypeParam>> all(500);
  all.push_back(all[10]);
  all.push_back(all[20]);
  std::vector<Identifier> ids{all[10].getId(), all[10].getId(), all[20].getId(), Identifier()};
  for (std::size_t i = 0; i < 500; i += 3)
    ids.push_back(all[i].getId());
  this->host->replaceGroups(all);
  for (const auto& id : ids) {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&id](const auto& group) { return group.getId() == id; });
    if (found != all.end())
      all.erase(found);
  }

  RemoveTKGroupsCmd<TypeParam>(this->host, ids).execute();

  EXPECT_TRUE(identical(this->host->copyOfGroups(), all));
}

TYPED_TEST(LargeSelection, LosesNoMemberThatStaysWhicheverAllocationFails)
{
  const auto ids = std::vector<TypeParam>(100);
  const std::vector<TypeParam> leaving(ids.begin() + 20, ids.begin() + 40);
  this->groups.resize(2);
  for (auto& group : this->groups) {
    group.clear();
    group.addGroupMembersAtIndex(ids, -1);
  }
  for (std::size_t successes = 0; successes < 1000; ++successes) {
    this->host->replaceGroups(this->groups);
    RemoveFromTKGroupCmd<TypeParam> command(this->host, leaving);
    try {
      const AllocationWatch watch(successes);
      command.execute();
      if (!watch.hasFailed())
        return;
    } catch (const std::bad_alloc&) {
      command.redo();
      const auto& left = this->host->copyOfGroups();
      for (const auto& group : left) {
        EXPECT_GE(group.numberOfGroupMembers(), ids.size() - leaving.size()) << successes;
      }
    }
  }
  FAIL() << "the command never succeeds";
}

}
}
