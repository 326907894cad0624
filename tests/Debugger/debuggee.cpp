// SPDX-License-Identifier: MIT
// Values for the debugger to show, with both identifier types.

#include "CommandPattern/CommandHistory.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "Support/RecordingHost.h"

#include <initializer_list>
#include <memory>
#include <vector>

namespace Tarvik {

namespace {

constexpr IdentifierBits bitsOfPump{0x0123456789abcdef, 0x8000000000000007};
constexpr IdentifierBits bitsOfValve{0, 8};

/// Where the debugger stops.
void stop(std::initializer_list<const void*> /*lookedAt*/) {}

template <class T>
void show()
{
  const T pump(bitsOfPump);
  const T valve(bitsOfValve);
  const TKGroup<T> group = Tarvik::group("Inlet", {pump, valve});
  const auto host = hostWith(group);

  AddToTKGroupCmd<T> add(host, {pump}, group.getId());
  add.setInsertIndex(1);
  add.execute();
  MoveTKGroupElementsCmd<T> move(host, {valve}, pump, true);
  move.execute();
  const MacroCommand macro(
      {std::make_shared<AddToTKGroupCmd<T>>(host, std::vector<T>{}, Identifier())}, "Both");
  const auto rename = std::make_shared<RenameTKGroupCmd<T>>(host, group.getId(), "Outlet");
  const CommandBase& base = *rename;
  CommandHistory history;
  history.execute(rename);
  stop({&pump, &valve, &group, &add, &move, &macro, &base, &history});
}

}

}

int main()
{
  Tarvik::show<Tarvik::Identifier>();
  Tarvik::show<Tarvik::GUIdentifier>();
}
