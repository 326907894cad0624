// SPDX-License-Identifier: MIT
#include "GroupHosting/Providers/TKGroupProvider.h"

#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class Provider : public ::testing::Test {
protected:
  const std::vector<T> ids = std::vector<T>(5);
  const T a = ids[0];
  const T b = ids[1];
  const T c = ids[2];
  const T d = ids[3];
  const T unknown = ids[4];
  TestProvider<T> provider{{a, b, c, d}};
};
TYPED_TEST_SUITE(Provider, ProvidedIdentifiers, ProvidedName);

template <class T>
using Elements = std::vector<T>;

TYPED_TEST(Provider, HasNothingAtFirst)
{
  TestProvider<TypeParam> empty;

  EXPECT_TRUE(empty.elements().empty());
  EXPECT_TRUE(empty.getGroups().empty());
  EXPECT_TRUE(empty.getUngroupedElements().empty());
  EXPECT_EQ(empty.holderOf(this->a), nullptr);
  EXPECT_EQ(empty.findGroup(Identifier()), nullptr);
  EXPECT_FALSE(empty.hasElement(this->a));
  EXPECT_FALSE(empty.isGrouped(this->a));
}

TYPED_TEST(Provider, TakesTheListOfGroupsAsItIs)
{
  auto same = group("B", {this->b});
  setMembers(same, {this->a, this->a, this->unknown});
  const std::vector<TKGroup<TypeParam>> groups = {group("A", {this->a}), same, same};

  this->provider.setGroups(groups);
  EXPECT_TRUE(identical(this->provider.getGroups(), groups));

  this->provider.setGroups(this->provider.getGroups());
  EXPECT_TRUE(identical(this->provider.getGroups(), groups));

  this->provider.setGroups({});
  EXPECT_TRUE(this->provider.getGroups().empty());
}

TYPED_TEST(Provider, FindsTheFirstHolderInTheOrderOfTheList)
{
  const auto x = group("X", {this->a, this->b});
  const auto y = group("Y", {this->b, this->unknown});

  this->provider.setGroups({x, y});
  EXPECT_EQ(this->provider.holderOf(this->b), &this->provider.getGroups()[0]);
  EXPECT_EQ(this->provider.holderOf(this->unknown), &this->provider.getGroups()[1]);
  EXPECT_EQ(this->provider.holderOf(this->c), nullptr);

  this->provider.setGroups({y, x});
  EXPECT_EQ(this->provider.holderOf(this->b), &this->provider.getGroups()[0]);
  EXPECT_EQ(this->provider.holderOf(this->b)->getName(), "Y");

  this->provider.setGroups({x});
  EXPECT_EQ(this->provider.holderOf(this->b)->getName(), "X");
  EXPECT_EQ(this->provider.holderOf(this->unknown), nullptr);
}

TYPED_TEST(Provider, KnowsWhichGroupsHoldAnElement)
{
  const auto x = group("X", {this->a});
  const auto y = group("Y", {this->a, this->b});
  this->provider.setGroups({x, y});

  EXPECT_TRUE(this->provider.isInGroup(this->a, x.getId()));
  EXPECT_TRUE(this->provider.isInGroup(this->a, y.getId()));
  EXPECT_FALSE(this->provider.isInGroup(this->b, x.getId()));
  EXPECT_FALSE(this->provider.isInGroup(this->b, Identifier()));
  EXPECT_FALSE(this->provider.isInGroup(this->unknown, x.getId()));
  EXPECT_TRUE(this->provider.isGrouped(this->b));
  EXPECT_FALSE(this->provider.isGrouped(this->c));
}

TYPED_TEST(Provider, FindsTheFirstGroupWithAnId)
{
  const auto x = group("X", {this->a});
  auto copy = x;
  copy.setName("copy", true);

  this->provider.setGroups({group<TypeParam>("W", {}), copy, x});

  EXPECT_EQ(this->provider.findGroup(x.getId()), &this->provider.getGroups()[1]);
  EXPECT_EQ(this->provider.findGroup(Identifier()), nullptr);
  EXPECT_EQ(this->provider.findGroup(Identifier::getInvalidId()), nullptr);
}

TYPED_TEST(Provider, ListsUngroupedElementsInTheirOrder)
{
  this->provider.setGroups({group("X", {this->c, this->unknown}), group("Y", {this->a, this->c})});
  EXPECT_EQ(this->provider.getUngroupedElements(), (Elements<TypeParam>{this->b, this->d}));

  this->provider.setGroups({group("Y", {this->a})});
  EXPECT_EQ(this->provider.getUngroupedElements(),
            (Elements<TypeParam>{this->b, this->c, this->d}));

  this->provider.setElements({this->d, this->unknown, this->a, this->b});
  EXPECT_EQ(this->provider.ungroupedElements(),
            (Elements<TypeParam>{this->d, this->unknown, this->b}));
}

TYPED_TEST(Provider, KeepsGroupsWhenElementsComeAndGo)
{
  const std::vector<TKGroup<TypeParam>> groups = {group("X", {this->a, this->unknown})};
  this->provider.setGroups(groups);

  this->provider.setElements({this->unknown});
  EXPECT_TRUE(identical(this->provider.getGroups(), groups));
  EXPECT_TRUE(this->provider.hasElement(this->unknown));
  EXPECT_FALSE(this->provider.hasElement(this->a));
  EXPECT_TRUE(this->provider.isGrouped(this->a));
  EXPECT_TRUE(this->provider.getUngroupedElements().empty());

  this->provider.setGroups({});
  EXPECT_EQ(this->provider.getUngroupedElements(), Elements<TypeParam>{this->unknown});
}

TYPED_TEST(Provider, CountsElementsThatAreGivenTwiceOnce)
{
  this->provider.setElements({this->b, this->a, this->b, this->a});

  EXPECT_EQ(this->provider.elements(), (Elements<TypeParam>{this->b, this->a}));
  EXPECT_EQ(this->provider.getUngroupedElements(), (Elements<TypeParam>{this->b, this->a}));
}

TYPED_TEST(Provider, RenamesTheFirstGroupWithAnId)
{
  const auto x = group("X", {this->a});
  this->provider.setGroups({group("W", {this->b}), x, x});

  this->provider.renameGroup(x.getId(), "Y");
  this->provider.renameGroup(Identifier(), "Z");

  EXPECT_EQ(this->provider.groups(),
            list(group("W", {this->b}), group("Y", {this->a}), group("X", {this->a})));
}

TYPED_TEST(Provider, AcceptsItsOwnNameOfAGroupAsTheNewName)
{
  const auto x = group<TypeParam>("a name that does not fit into a small text", {});
  this->provider.setGroups({x, group<TypeParam>("Y", {})});

  this->provider.renameGroup(this->provider.getGroups()[1].getId(),
                             this->provider.getGroups()[0].getName());

  EXPECT_EQ(this->provider.getGroups()[1].getName(), x.getName());
}

TYPED_TEST(Provider, NamesTheMembersOfAGroup)
{
  const auto x = group("X", {this->c, this->unknown, this->a});
  this->provider.setGroups({group("W", {this->b}), x});
  this->provider.nameElements({{this->a, "alpha"}, {this->c, "charlie"}});

  using Names = std::vector<std::pair<TypeParam, std::string>>;
  EXPECT_EQ(this->provider.getGroupMemberNames(x.getId()),
            (Names{{this->c, "charlie"}, {this->unknown, ""}, {this->a, "alpha"}}));
  EXPECT_EQ(this->provider.getGroupMemberNames(Identifier()), Names());
}

TYPED_TEST(Provider, HasNoMoveCommandOfItsOwn)
{
  const auto shared =
      std::make_shared<TestProvider<TypeParam>>(std::vector<TypeParam>{this->a, this->b});
  shared->setGroups({group("X", {this->a})});

  EXPECT_EQ(shared->createMoveCommand(this->b, {this->a}, true), nullptr);
  MoveTKGroupElementsCmd<TypeParam>(shared, {this->a}, this->b, true).execute();

  EXPECT_EQ(shared->getUngroupedElements(), (Elements<TypeParam>{this->a, this->b}));
}

TYPED_TEST(Provider, IsNotCopied)
{
  static_assert(!std::is_copy_constructible_v<TestProvider<TypeParam>>);
  static_assert(!std::is_copy_assignable_v<TestProvider<TypeParam>>);
  static_assert(std::is_abstract_v<TKGroupProvider<TypeParam>>);
}

TYPED_TEST(Provider, KeepsTheMembersOfGroupsThatDoNotChangeWhereTheyAre)
{
  const auto x = group("X", {this->a, this->b});
  const auto y = group("Y", {this->c});
  this->provider.setGroups({x, y});
  const auto* const members = this->provider.getGroups()[0].getGroupMembers().data();

  this->provider.setGroups({x, group("Z", {this->d})});
  EXPECT_EQ(this->provider.getGroups()[0].getGroupMembers().data(), members);

  this->provider.setGroups({y, x});
  EXPECT_EQ(this->provider.getGroups()[1].getGroupMembers().data(), members);
}

/// A list of groups with all kinds of changes, against one with none of them.
TYPED_TEST(Provider, FollowsManyChangesAtOnce)
{
  const auto v = group("V", {this->a, this->b, this->c});
  const auto w = group<TypeParam>("W", {});
  const auto x = group("X", {this->d});
  const auto y = group("Y", {this->unknown, this->a});
  this->provider.setGroups({v, w, x, y});

  auto v2 = v;
  setMembers(v2, {this->c, this->c, this->b});
  auto y2 = y;
  y2.setName("Y2", true);
  this->provider.setGroups({y2, group("New", {this->b}), v2, x});

  EXPECT_EQ(this->provider.holderOf(this->a)->getName(), "Y2");
  EXPECT_EQ(this->provider.holderOf(this->b)->getName(), "New");
  EXPECT_EQ(this->provider.holderOf(this->c)->getName(), "V");
  EXPECT_EQ(this->provider.holderOf(this->d)->getName(), "X");
  EXPECT_EQ(this->provider.findGroup(w.getId()), nullptr);
  EXPECT_EQ(this->provider.findGroup(y.getId()), &this->provider.getGroups()[0]);
  EXPECT_TRUE(this->provider.getUngroupedElements().empty());
}

}
}
