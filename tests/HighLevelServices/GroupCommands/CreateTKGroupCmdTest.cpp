// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"

#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// What the platform makes of a name that is taken.
std::string uniqueName(const std::string& base, const std::vector<std::string>& taken)
{
  SimpleNameSetProvider names;
  for (const auto& name : taken)
    static_cast<void>(names.addName(name));
  return UniqueNameProvider::createUniqueName(base, names);
}

template <class T>
class CreateGroup : public ::testing::Test {
protected:
  static void create(const std::shared_ptr<RecordingHost<T>>& host,
                     const std::string& name,
                     const std::vector<T>& elements = {})
  {
    CreateTKGroupCmd<T>(host, elements, name).execute();
  }
};
TYPED_TEST_SUITE(CreateGroup, ElementIdentifiers, KindName);

TYPED_TEST(CreateGroup, AppendsAnEmptyGroupForNoElements)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}), group("B", {b}));
  const auto before = host->copyOfGroups();

  this->create(host, "New");

  EXPECT_EQ(host->groups(), list(group("A", {a}), group("B", {b}), group<TypeParam>("New", {})));
  EXPECT_EQ(host->idOf("A"), before[0].getId());
  EXPECT_EQ(host->idOf("B"), before[1].getId());
}

TYPED_TEST(CreateGroup, GivesTheNewGroupAnIdThatNoOtherHas)
{
  const auto host = hostWith(group<TypeParam>("A", {}));

  this->create(host, "B");
  this->create(host, "C");

  EXPECT_TRUE(host->idOf("B").isValid());
  EXPECT_FALSE(host->idOf("B") == host->idOf("A"));
  EXPECT_FALSE(host->idOf("C") == host->idOf("A"));
  EXPECT_FALSE(host->idOf("C") == host->idOf("B"));
}

TYPED_TEST(CreateGroup, MovesElementsIntoTheNewGroup)
{
  const auto [a, b, c, x] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("A", {a, b}), group("B", {c}));

  this->create(host, "New", {c, x, a});

  EXPECT_EQ(host->groups(),
            list(group("A", {b}), group<TypeParam>("B", {}), group("New", {c, x, a})));
}

TYPED_TEST(CreateGroup, TakesAnElementOutOfItsFirstHolderOnly)
{
  const auto [x, y, z] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G1", {x, y}), group("G2", {y, z}));

  this->create(host, "New", {y});

  EXPECT_EQ(host->groups(), list(group("G1", {x}), group("G2", {y, z}), group("New", {y})));
}

TYPED_TEST(CreateGroup, TakesAnElementThatIsGivenTwiceOutOfTwoHoldersAndAddsItOnce)
{
  const auto [x, y, z] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G1", {x, y}), group("G2", {y, z}));

  this->create(host, "New", {y, y});

  EXPECT_EQ(host->groups(), list(group("G1", {x}), group("G2", {z}), group("New", {y})));
}

TYPED_TEST(CreateGroup, KeepsAGroupThatItEmpties)
{
  const auto [x, y] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("G1", {x, y}));
  const auto id = host->idOf("G1");

  this->create(host, "New", {x, y});

  EXPECT_EQ(host->groups(), list(group<TypeParam>("G1", {}), group("New", {x, y})));
  EXPECT_EQ(host->idOf("G1"), id);
}

TYPED_TEST(CreateGroup, KeepsTheOrderOfFirstOccurrence)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = emptyHost<TypeParam>();

  this->create(host, "New", {b, a, b});

  EXPECT_EQ(host->groups(), list(group("New", {b, a})));
}

TYPED_TEST(CreateGroup, KeepsAFreeNameAsTheNamingLibraryGivesIt)
{
  const auto host = hostWith(group<TypeParam>("A", {}));

  this->create(host, "B");

  EXPECT_EQ(host->groups().back().name, uniqueName("B", {"A"}));
}

TYPED_TEST(CreateGroup, MakesATakenNameUnique)
{
  const auto host = hostWith(group<TypeParam>("A", {}), group<TypeParam>("B", {}));

  this->create(host, "A");

  const auto name = host->groups().back().name;
  EXPECT_EQ(name, uniqueName("A", {"A", "B"}));
  EXPECT_NE(name, "A");
}

TYPED_TEST(CreateGroup, ComparesNamesUnchanged)
{
  const auto host = hostWith(group<TypeParam>("group", {}), group<TypeParam>(" A ", {}));

  this->create(host, "Group");
  this->create(host, "A");

  EXPECT_EQ(host->groups()[2].name, uniqueName("Group", {"group", " A "}));
  EXPECT_EQ(host->groups()[3].name, uniqueName("A", {"group", " A ", "Group"}));
}

TYPED_TEST(CreateGroup, UsesTheDefaultNameForAnEmptyOne)
{
  const auto host = emptyHost<TypeParam>();

  this->create(host, "");
  this->create(host, "");

  const auto first = uniqueName("Group", {});
  EXPECT_EQ(host->groups()[0].name, first);
  EXPECT_EQ(host->groups()[1].name, uniqueName("Group", {first}));
}

TYPED_TEST(CreateGroup, KeepsANameOfBlanks)
{
  const auto host = emptyHost<TypeParam>();

  this->create(host, "  ");

  EXPECT_EQ(host->groups().front().name, uniqueName("  ", {}));
}

TYPED_TEST(CreateGroup, KnowsTheNamesAsTheyAreWhenItIsExecuted)
{
  const auto host = emptyHost<TypeParam>();
  CreateTKGroupCmd<TypeParam> command(host, {}, "A");
  host->replaceGroups({group<TypeParam>("A", {})});

  command.execute();

  EXPECT_EQ(host->groups().back().name, uniqueName("A", {"A"}));
}

TYPED_TEST(CreateGroup, BringsTheSameGroupBackOnRedo)
{
  const auto [x, y] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("G1", {x, y}));
  const auto before = host->copyOfGroups();
  CreateTKGroupCmd<TypeParam> command(host, {y}, "New");
  command.execute();
  const auto after = host->copyOfGroups();

  command.undo();
  EXPECT_TRUE(identical(host->copyOfGroups(), before));

  command.redo();
  EXPECT_TRUE(identical(host->copyOfGroups(), after)) << "the new group returns with name and id";
}

TYPED_TEST(CreateGroup, ReadsTheHostOnceAndHandsAListOverEachTime)
{
  const auto host = emptyHost<TypeParam>();
  CreateTKGroupCmd<TypeParam> command(host, {}, "A");

  command.execute();
  EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "setGroups"}));
  command.undo();
  command.redo();
  EXPECT_EQ(host->takeCalls(), (Calls{"setGroups", "setGroups"}));
}

TYPED_TEST(CreateGroup, HandsAnEmptyListOverBeforeItIsExecuted)
{
  const auto [a] = distinct<TypeParam, 1>();
  const auto host = hostWith(group("A", {a}));
  CreateTKGroupCmd<TypeParam> command(host, {}, "B");

  command.undo();
  EXPECT_TRUE(host->groups().empty());
  command.redo();
  EXPECT_TRUE(host->groups().empty());
  EXPECT_EQ(host->takeCalls(), (Calls{"setGroups", "setGroups"}));
}

TYPED_TEST(CreateGroup, StartsASecondExecuteFromTheNameOfTheFirst)
{
  const auto [x] = distinct<TypeParam, 1>();
  const auto host = hostWith(group("A", {x}));
  CreateTKGroupCmd<TypeParam> command(host, {x}, "A");

  command.execute();
  const auto first = host->groups().back().name;
  command.execute();

  EXPECT_EQ(host->groups().back().name, uniqueName(first, {"A", first}));
  EXPECT_EQ(host->groups().size(), 3U);
  EXPECT_EQ(host->groups()[1].members, std::vector<TypeParam>()) << "x went on to the third";
  EXPECT_EQ(host->groups()[2].members, std::vector<TypeParam>{x});
}

TYPED_TEST(CreateGroup, TakesItsNameAlongWhenItIsAssigned)
{
  const auto host = emptyHost<TypeParam>();
  CreateTKGroupCmd<TypeParam> source(host, {}, "A");
  CreateTKGroupCmd<TypeParam> target(host, {}, "B");

  target = std::move(source);
  target.execute();

  EXPECT_EQ(host->groups(), list(group<TypeParam>("A", {})));
}

TYPED_TEST(CreateGroup, CopiesItsArguments)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = emptyHost<TypeParam>();
  std::vector<TypeParam> elements = {a};
  std::string name = "A";
  CreateTKGroupCmd<TypeParam> command(host, elements, name);

  elements = {b};
  name = "B";
  command.execute();

  EXPECT_EQ(host->groups(), list(group("A", {a})));
}

}
}
