// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"

#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// Instantiating this explicitly defines `renameDirectly(Class&, name)`. Access is not checked for
/// the arguments of an explicit instantiation, so the operation may be private.
template <class Class, void (Class::*SetName)(const std::string&)>
struct DirectRename {
  friend void renameDirectly(Class& command, const std::string& name) { (command.*SetName)(name); }
};
void renameDirectly(RenameTKGroupCmd<Identifier>& command, const std::string& name);
void renameDirectly(RenameTKGroupCmd<GUIdentifier>& command, const std::string& name);
template struct DirectRename<RenameTKGroupCmd<Identifier>, &RenameTKGroupCmd<Identifier>::setName>;
template struct DirectRename<RenameTKGroupCmd<GUIdentifier>,
                             &RenameTKGroupCmd<GUIdentifier>::setName>;

template <class T>
class RenameGroup : public ::testing::Test {};
TYPED_TEST_SUITE(RenameGroup, ElementIdentifiers, KindName);

TYPED_TEST(RenameGroup, AsksTheHostForTheNewNameAndForTheOldOne)
{
  const auto host = hostWith(group<TypeParam>("Alpha", {}), group<TypeParam>("Other", {}));
  const auto id = host->idOf("Alpha");
  RenameTKGroupCmd<TypeParam> command(host, id, "Beta");

  command.execute();
  EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "renameGroup Beta"}));
  EXPECT_EQ(host->idOf("Beta"), id);

  command.undo();
  EXPECT_EQ(host->takeCalls(), Calls{"renameGroup Alpha"});
  EXPECT_EQ(host->idOf("Alpha"), id);

  command.redo();
  EXPECT_EQ(host->takeCalls(), Calls{"renameGroup Beta"});
  EXPECT_EQ(host->idOf("Beta"), id);
}

TYPED_TEST(RenameGroup, PassesEveryNameOnAsItIs)
{
  for (const auto* const name : {"Other", "Alpha", "", "  "}) {
    const auto host = hostWith(group<TypeParam>("Alpha", {}), group<TypeParam>("Other", {}));
    RenameTKGroupCmd<TypeParam> command(host, host->idOf("Alpha"), name);

    command.execute();

    EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "renameGroup " + std::string(name)}));
    EXPECT_EQ(host->groups().front().name, name);
  }
}

TYPED_TEST(RenameGroup, AsksForAnUnknownGroupAllTheSame)
{
  for (const auto& host : {hostWith(group<TypeParam>("Alpha", {})), emptyHost<TypeParam>()}) {
    const auto before = host->groups();
    RenameTKGroupCmd<TypeParam> command(host, Identifier(), "Beta");

    command.execute();
    command.undo();
    command.redo();

    EXPECT_EQ(host->takeCalls(),
              (Calls{"getGroups", "renameGroup Beta", "renameGroup ", "renameGroup Beta"}));
    EXPECT_EQ(host->groups(), before);
  }
}

TYPED_TEST(RenameGroup, TakesTheOldNameFromTheFirstOfTwoGroupsWithTheSameId)
{
  const auto first = group<TypeParam>("First", {});
  auto second = first;
  second.setName("Second", true);
  const auto host = hostWith(first, second);
  RenameTKGroupCmd<TypeParam> command(host, first.getId(), "New");
  command.execute();
  host->takeCalls();

  command.undo();

  EXPECT_EQ(host->takeCalls(), Calls{"renameGroup First"});
}

TYPED_TEST(RenameGroup, CapturesTheNameOfTheMomentWhenItIsExecutedAgain)
{
  const auto host = hostWith(group<TypeParam>("Alpha", {}));
  RenameTKGroupCmd<TypeParam> command(host, host->idOf("Alpha"), "Beta");
  command.execute();

  command.execute();
  command.undo();

  EXPECT_EQ(host->groups().front().name, "Beta");
}

TYPED_TEST(RenameGroup, GivesTheEmptyNameWhenItIsUndoneBeforeItIsExecuted)
{
  const auto host = hostWith(group<TypeParam>("Alpha", {}));
  RenameTKGroupCmd<TypeParam> command(host, host->idOf("Alpha"), "Beta");

  command.undo();

  EXPECT_EQ(host->takeCalls(), Calls{"renameGroup "});
}

TYPED_TEST(RenameGroup, CopiesItsArguments)
{
  const auto host = hostWith(group<TypeParam>("Alpha", {}));
  auto id = host->idOf("Alpha");
  std::string name = "Beta";
  RenameTKGroupCmd<TypeParam> command(host, id, name);

  id = Identifier();
  name = "Gamma";
  command.execute();

  EXPECT_EQ(host->groups().front().name, "Beta");
}

TYPED_TEST(RenameGroup, TakesGroupAndNameAlongWhenItIsAssigned)
{
  const auto host = hostWith(group<TypeParam>("Alpha", {}));
  RenameTKGroupCmd<TypeParam> source(host, host->idOf("Alpha"), "Beta");
  RenameTKGroupCmd<TypeParam> target(host, Identifier(), "Gamma");
  source.execute();

  target = std::move(source);
  target.undo();
  EXPECT_EQ(host->groups().front().name, "Alpha");
  target.redo();
  EXPECT_EQ(host->groups().front().name, "Beta");
}

TYPED_TEST(RenameGroup, RenamesInTheHostsListWithoutAskingWhenItIsToldTo)
{
  const auto host = hostWith(group<TypeParam>("Alpha", {}));
  RenameTKGroupCmd<TypeParam> command(host, host->idOf("Alpha"), "Beta");

  renameDirectly(command, "Direct");

  EXPECT_EQ(host->takeCalls(), Calls{"getGroups"});
  EXPECT_EQ(host->groups().front().name, "Direct");
}

TYPED_TEST(RenameGroup, SharesOneFallbackForAllUnknownGroups)
{
  const auto host = emptyHost<TypeParam>();
  RenameTKGroupCmd<TypeParam> one(host, Identifier(), "Beta");
  RenameTKGroupCmd<TypeParam> other(emptyHost<TypeParam>(), Identifier(), "Beta");

  renameDirectly(other, "fallback");
  one.execute();
  host->takeCalls();
  one.undo();
  EXPECT_EQ(host->takeCalls(), Calls{"renameGroup fallback"});

  renameDirectly(other, ""); // as the other tests expect it
}

}
}
