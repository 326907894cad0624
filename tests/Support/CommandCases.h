// SPDX-License-Identifier: MIT
#pragma once

#ifdef TKM_TEST_COMMANDS_OF_GROUP_HOSTING
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#endif
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

/// One case per command: how to build it on a host on which it finds something to do, and what it
/// asks of that host. The tests of what all commands promise run over lists of these cases.
namespace Tarvik {

/// Names that do not fit into a std::string without an allocation: tests that count or fail
/// allocations see them too.
inline const std::string longNameA = "the first group, with a name of some length";
inline const std::string longNameB = "the second group, with a name of some length";
inline const std::string longNameC = "another name for a group, of some length too";

/// A host with two groups of two members, on which every command finds something to do.
template <class T>
std::shared_ptr<RecordingHost<T>> hostForCommands()
{
  const auto [a, b, c, d] = distinct<T, 4>();
  auto host = hostWith(group(longNameA, {a, b}), group(longNameB, {c, d}));
  host->nameElements({{a, "delta"}, {b, "charlie"}, {c, "bravo"}, {d, "alpha"}});
  return host;
}

/// What most commands are, and what they ask of the host.
struct SnapshotCommandCase {
  static constexpr bool keepsLists = true; ///< the before list and the after list
  static constexpr bool isMovable = true;

  /// The most texts that a command may keep when another one was assigned from it: assigning a text
  /// may swap the memory of the two.
  static constexpr std::size_t textsLeftBehind = 0;

  static Calls onExecute() { return {"getGroups", "setGroups"}; }
  static Calls onUndo() { return {"setGroups"}; }
  static Calls onRedo() { return {"setGroups"}; }
};

template <class T>
struct AddToGroupCase : SnapshotCommandCase {
  using Element = T;
  using Command = AddToTKGroupCmd<T>;
  static constexpr const char* context = "AddToTKGroupCmd";
  static constexpr const char* description = "Add to Group";

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, host->groups().front().members, host->idOf(longNameB));
  }
};

template <class T>
struct CreateGroupCase : SnapshotCommandCase {
  using Element = T;
  using Command = CreateTKGroupCmd<T>;
  static constexpr const char* context = "CreateTKGroupCmd";
  static constexpr const char* description = "Create Group";
  static constexpr std::size_t textsLeftBehind = 1; // the name

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, host->groups().front().members, longNameA);
  }
};

template <class T>
struct RemoveFromGroupCase : SnapshotCommandCase {
  using Element = T;
  using Command = RemoveFromTKGroupCmd<T>;
  static constexpr const char* context = "RemoveFromTKGroupCmd";
  static constexpr const char* description = "Remove Point Collection(s) From Group";
  static constexpr std::size_t textsLeftBehind = 1; // the description, on some platforms

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, host->groups().front().members);
  }
};

template <class T>
struct RemoveGroupsCase : SnapshotCommandCase {
  static constexpr bool isMovable = false;
  using Element = T;
  using Command = RemoveTKGroupsCmd<T>;
  static constexpr const char* context = "RemoveTKGroupsCmd";
  static constexpr const char* description = "Remove Group";

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, {host->idOf(longNameA)});
  }
};

template <class T>
struct RenameGroupCase {
  static constexpr bool keepsLists = false;
  static constexpr bool isMovable = true;
  using Element = T;
  using Command = RenameTKGroupCmd<T>;
  static constexpr const char* context = "RenameTKGroupCmd";
  static constexpr const char* description = "Rename Group";
  static constexpr std::size_t textsLeftBehind = 1; // one of the two names

  static Calls onExecute() { return {"getGroups", "renameGroup " + longNameC}; }
  static Calls onUndo() { return {"renameGroup " + longNameA}; }
  static Calls onRedo() { return {"renameGroup " + longNameC}; }

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, host->idOf(longNameA), longNameC);
  }
};

template <class T>
struct MoveElementsCase : SnapshotCommandCase {
  static constexpr bool keepsLists = false;
  using Element = T;
  using Command = MoveTKGroupElementsCmd<T>;
  static constexpr const char* context = "MoveTKGroupElementsCmd";
  static constexpr const char* description = "Move Elements";

  static Calls onExecute() { return {"getGroups", "getGroups", "setGroups"}; }

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    const auto groups = host->groups();
    return C(host, groups.front().members, groups.back().members.front(), true);
  }
};

template <class T>
struct SortGroupsCase : SnapshotCommandCase {
  using Element = T;
  using Command = SortTKGroupsAlphabeticallyCmd<T>;
  static constexpr const char* context = "SortTKGroupsAlphabeticallyCmd";
  static constexpr const char* description = "Sort Groups";

  static Calls onExecute()
  {
    return {"getGroups", "getGroupMemberNames", "getGroupMemberNames", "setGroups"};
  }

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host);
  }
};

#ifdef TKM_TEST_COMMANDS_OF_GROUP_HOSTING
template <class T>
struct MoveGroupsCase : SnapshotCommandCase {
  using Element = T;
  using Command = MoveTKGroupsCmd<T>;
  static constexpr const char* context = "MoveTKGroupsCmd";
  static constexpr const char* description = "Move Groups";

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, {host->idOf(longNameB)}, host->idOf(longNameA), true);
  }
};

/// All commands of GroupHosting, for its own test program. The lists below are derived from this
/// one.
using CommandCases = ForBothKinds<MoveGroupsCase>;
#else
/// All commands of HighLevelServices.
using CommandCases = ForBothKinds<AddToGroupCase,
                                  CreateGroupCase,
                                  MoveElementsCase,
                                  RemoveFromGroupCase,
                                  RemoveGroupsCase,
                                  RenameGroupCase,
                                  SortGroupsCase>;
#endif

template <class... Cases>
::testing::Types<Cases...> asTypes(const std::tuple<Cases...>& cases);

template <bool Condition, class Case>
using KeptIf = std::conditional_t<Condition, std::tuple<Case>, std::tuple<>>;

template <class... Cases>
auto movable(const ::testing::Types<Cases...>* cases)
    -> decltype(asTypes(std::tuple_cat(KeptIf<Cases::isMovable, Cases>()...)));

template <class... Cases>
auto keepingLists(const ::testing::Types<Cases...>* cases)
    -> decltype(asTypes(std::tuple_cat(KeptIf<Cases::keepsLists, Cases>()...)));

using MovableCommandCases = decltype(movable(static_cast<CommandCases*>(nullptr)));
using SnapshotCommandCases = decltype(keepingLists(static_cast<CommandCases*>(nullptr)));

struct CaseName {
  template <class Case>
  static std::string GetName(int)
  {
    return std::string(Case::context) + KindName::GetName<typename Case::Element>(0);
  }
};

/// A host with something to do for the command, and its groups from before.
template <class Case>
class CommandTest : public ::testing::Test {
protected:
  using Element = typename Case::Element;

  std::shared_ptr<RecordingHost<Element>> host = hostForCommands<Element>();
  std::vector<TKGroup<Element>> before = host->copyOfGroups();
};

}
