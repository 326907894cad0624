// SPDX-License-Identifier: MIT
// Private operations that nothing calls, since the commands handle all elements and groups at once.
// They are part of the binary interface.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <vector>

namespace Tarvik {
namespace {

/// Instantiating this explicitly defines `callDirectly(command, argument)`. Access is not checked
/// for the arguments of an explicit instantiation, so the operation may be private.
template <class Command, class Argument, void (Command::*operation)(const Argument&)>
struct DirectCall {
  friend void callDirectly(Command& command, const Argument& argument)
  {
    (command.*operation)(argument);
  }
};
void callDirectly(AddToTKGroupCmd<Identifier>& command, const Identifier& argument);
template struct DirectCall<AddToTKGroupCmd<Identifier>,
                           Identifier,
                           &AddToTKGroupCmd<Identifier>::removeFromGroups>;
void callDirectly(AddToTKGroupCmd<GUIdentifier>& command, const GUIdentifier& argument);
template struct DirectCall<AddToTKGroupCmd<GUIdentifier>,
                           GUIdentifier,
                           &AddToTKGroupCmd<GUIdentifier>::removeFromGroups>;
void callDirectly(CreateTKGroupCmd<Identifier>& command, const Identifier& argument);
template struct DirectCall<CreateTKGroupCmd<Identifier>,
                           Identifier,
                           &CreateTKGroupCmd<Identifier>::removeFromGroups>;
void callDirectly(CreateTKGroupCmd<GUIdentifier>& command, const GUIdentifier& argument);
template struct DirectCall<CreateTKGroupCmd<GUIdentifier>,
                           GUIdentifier,
                           &CreateTKGroupCmd<GUIdentifier>::removeFromGroups>;
void callDirectly(RemoveFromTKGroupCmd<Identifier>& command, const Identifier& argument);
template struct DirectCall<RemoveFromTKGroupCmd<Identifier>,
                           Identifier,
                           &RemoveFromTKGroupCmd<Identifier>::removeFromGroups>;
void callDirectly(RemoveFromTKGroupCmd<GUIdentifier>& command, const GUIdentifier& argument);
template struct DirectCall<RemoveFromTKGroupCmd<GUIdentifier>,
                           GUIdentifier,
                           &RemoveFromTKGroupCmd<GUIdentifier>::removeFromGroups>;
void callDirectly(RemoveTKGroupsCmd<Identifier>& command, const Identifier& argument);
template struct DirectCall<RemoveTKGroupsCmd<Identifier>,
                           Identifier,
                           &RemoveTKGroupsCmd<Identifier>::removeGroup>;
void callDirectly(RemoveTKGroupsCmd<GUIdentifier>& command, const Identifier& argument);
template struct DirectCall<RemoveTKGroupsCmd<GUIdentifier>,
                           Identifier,
                           &RemoveTKGroupsCmd<GUIdentifier>::removeGroup>;

template <class Command, bool (Command::*operation)() const>
struct DirectQuestion {
  friend bool isTargetGroupValid(const Command& command) { return (command.*operation)(); }
};
bool isTargetGroupValid(const AddToTKGroupCmd<Identifier>& command);
template struct DirectQuestion<AddToTKGroupCmd<Identifier>,
                               &AddToTKGroupCmd<Identifier>::isTargetGroupValid>;
bool isTargetGroupValid(const AddToTKGroupCmd<GUIdentifier>& command);
template struct DirectQuestion<AddToTKGroupCmd<GUIdentifier>,
                               &AddToTKGroupCmd<GUIdentifier>::isTargetGroupValid>;

template <class T>
class UncalledOperation : public ::testing::Test {};
TYPED_TEST_SUITE(UncalledOperation, ElementIdentifiers, KindName);

/// Calls removeFromGroups() with an element of two groups, then with one of none.
template <class T, class Command>
void expectToTakeOneElementOut(Command& command, RecordingHost<T>& host, const std::vector<T>& ids)
{
  command.execute();
  const auto before = host.groups();

  callDirectly(command, ids[0]);
  callDirectly(command, T());
  command.redo();

  EXPECT_EQ(host.groups()[0].members, std::vector<T>{ids[1]});
  EXPECT_EQ(host.groups()[1], before[1]);
}

TYPED_TEST(UncalledOperation, TakesOneElementOutOfItsFirstHolder)
{
  const auto [x, y, z] = distinct<TypeParam, 3>();
  const auto first = group("A", {x, y});
  const auto second = group("B", {x, z});

  auto host = hostWith(first, second);
  AddToTKGroupCmd<TypeParam> add(host, {}, host->idOf("B"));
  expectToTakeOneElementOut(add, *host, {x, y});

  host = hostWith(first, second);
  CreateTKGroupCmd<TypeParam> create(host, {}, "C");
  expectToTakeOneElementOut(create, *host, {x, y});

  host = hostWith(first, second);
  RemoveFromTKGroupCmd<TypeParam> remove(host, {});
  expectToTakeOneElementOut(remove, *host, {x, y});
}

TYPED_TEST(UncalledOperation, RemovesOneGroup)
{
  const auto host = hostWith(group<TypeParam>("A", {}), group<TypeParam>("B", {}));
  RemoveTKGroupsCmd<TypeParam> command(host, {});
  command.execute();

  callDirectly(command, host->idOf("A"));
  callDirectly(command, Identifier());
  command.redo();

  EXPECT_EQ(host->groups(), list(group<TypeParam>("B", {})));
}

TYPED_TEST(UncalledOperation, LooksForTheTargetGroup)
{
  const auto host = hostWith(group<TypeParam>("A", {}), group<TypeParam>("B", {}));
  AddToTKGroupCmd<TypeParam> known(host, {}, host->idOf("B"));
  AddToTKGroupCmd<TypeParam> unknown(host, {}, Identifier());

  known.execute();
  unknown.execute();

  EXPECT_TRUE(isTargetGroupValid(known));
  EXPECT_FALSE(isTargetGroupValid(unknown));
}

}
}
