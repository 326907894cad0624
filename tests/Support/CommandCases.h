// SPDX-License-Identifier: MIT
#pragma once

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
#include <vector>

/// One case per command: how it is built on a host with something to do for it, and what it asks
/// of that host. Tests of what all commands promise run over lists of cases.
namespace Tarvik {

/// Group names that do not fit into a std::string without an allocation: tests that count or fail
/// allocations see them as well.
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

/// What most commands ask of the host.
struct SnapshotCalls {
  static Calls onExecute() { return {"getGroups", "setGroups"}; }
  static Calls onUndo() { return {"setGroups"}; }
  static Calls onRedo() { return {"setGroups"}; }
};

template <class T>
struct AddToGroupCase : SnapshotCalls {
  using Element = T;
  using Command = AddToTKGroupCmd<T>;
  static constexpr const char* context = "AddToTKGroupCmd";
  static constexpr const char* description = "Add to Group";
  static constexpr std::size_t textsLeftBehind = 0; // at the most, in what was assigned from

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, host->groups().front().members, host->idOf(longNameB));
  }
};

template <class T>
struct CreateGroupCase : SnapshotCalls {
  using Element = T;
  using Command = CreateTKGroupCmd<T>;
  static constexpr const char* context = "CreateTKGroupCmd";
  static constexpr const char* description = "Create Group";
  static constexpr std::size_t textsLeftBehind = 1; // a text that is assigned to swaps its memory

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return C(host, host->groups().front().members, longNameA);
  }
};

template <class T>
struct RemoveFromGroupCase : SnapshotCalls {
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
struct RemoveGroupsCase : SnapshotCalls {
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
  using Element = T;
  using Command = RenameTKGroupCmd<T>;
  static constexpr const char* context = "RenameTKGroupCmd";
  static constexpr const char* description = "Rename Group";
  static constexpr std::size_t textsLeftBehind = 1; // as above

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
struct MoveElementsCase : SnapshotCalls {
  using Element = T;
  using Command = MoveTKGroupElementsCmd<T>;
  static constexpr const char* context = "MoveTKGroupElementsCmd";
  static constexpr const char* description = "Move Elements";
  static constexpr std::size_t textsLeftBehind = 0;

  static Calls onExecute() { return {"getGroups", "getGroups", "setGroups"}; }

  template <class C = Command>
  static C make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    const auto groups = host->groups();
    return C(host, groups.front().members, groups.back().members.front(), true);
  }
};

template <class T>
struct SortGroupsCase : SnapshotCalls {
  using Element = T;
  using Command = SortTKGroupsAlphabeticallyCmd<T>;
  static constexpr const char* context = "SortTKGroupsAlphabeticallyCmd";
  static constexpr const char* description = "Sort Groups";
  static constexpr std::size_t textsLeftBehind = 0;

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

/// All commands for both kinds of identifiers, and those that hold something in common.
using CommandCases = ::testing::Types<AddToGroupCase<Identifier>,
                                      AddToGroupCase<GUIdentifier>,
                                      CreateGroupCase<Identifier>,
                                      CreateGroupCase<GUIdentifier>,
                                      MoveElementsCase<Identifier>,
                                      MoveElementsCase<GUIdentifier>,
                                      RemoveFromGroupCase<Identifier>,
                                      RemoveFromGroupCase<GUIdentifier>,
                                      RemoveGroupsCase<Identifier>,
                                      RemoveGroupsCase<GUIdentifier>,
                                      RenameGroupCase<Identifier>,
                                      RenameGroupCase<GUIdentifier>,
                                      SortGroupsCase<Identifier>,
                                      SortGroupsCase<GUIdentifier>>;

using MovableCommandCases = ::testing::Types<AddToGroupCase<Identifier>,
                                             AddToGroupCase<GUIdentifier>,
                                             CreateGroupCase<Identifier>,
                                             CreateGroupCase<GUIdentifier>,
                                             MoveElementsCase<Identifier>,
                                             MoveElementsCase<GUIdentifier>,
                                             RemoveFromGroupCase<Identifier>,
                                             RemoveFromGroupCase<GUIdentifier>,
                                             RenameGroupCase<Identifier>,
                                             RenameGroupCase<GUIdentifier>,
                                             SortGroupsCase<Identifier>,
                                             SortGroupsCase<GUIdentifier>>;

using SnapshotCommandCases = ::testing::Types<AddToGroupCase<Identifier>,
                                              AddToGroupCase<GUIdentifier>,
                                              CreateGroupCase<Identifier>,
                                              CreateGroupCase<GUIdentifier>,
                                              RemoveFromGroupCase<Identifier>,
                                              RemoveFromGroupCase<GUIdentifier>,
                                              RemoveGroupsCase<Identifier>,
                                              RemoveGroupsCase<GUIdentifier>,
                                              SortGroupsCase<Identifier>,
                                              SortGroupsCase<GUIdentifier>>;

struct CaseName {
  template <class Case>
  static std::string GetName(int)
  {
    return std::string(Case::context) + KindName::GetName<typename Case::Element>(0);
  }
};

}
