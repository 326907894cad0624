// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// One case per command: how it is built on a host with something to do for it. Tests of what all
/// commands promise run over `CommandCases`.
namespace Tarvik {

/// Group names that do not fit into a std::string without an allocation: tests that count or fail
/// allocations see them as well.
inline const std::string longNameA = "the first group, with a name of some length";
inline const std::string longNameB = "the second group, with a name of some length";

/// A host with two groups of two members, on which every command finds something to do.
template <class T>
std::shared_ptr<RecordingHost<T>> hostForCommands()
{
  const auto [a, b, c, d] = distinct<T, 4>();
  return hostWith(group(longNameA, {a, b}), group(longNameB, {c, d}));
}

template <class T>
struct AddToGroupCase {
  using Element = T;
  using Command = AddToTKGroupCmd<T>;
  static constexpr const char* context = "AddToTKGroupCmd";
  static constexpr const char* description = "Add to Group";
  static constexpr std::size_t textsLeftBehind = 0;

  static Command make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return Command(host, host->groups().front().members, host->idOf(longNameB));
  }
};

template <class T>
struct CreateGroupCase {
  using Element = T;
  using Command = CreateTKGroupCmd<T>;
  static constexpr const char* context = "CreateTKGroupCmd";
  static constexpr const char* description = "Create Group";
  static constexpr std::size_t textsLeftBehind = 1; // a text that is assigned to swaps its memory

  static Command make(const std::shared_ptr<RecordingHost<T>>& host)
  {
    return Command(host, host->groups().front().members, longNameA);
  }
};

using CommandCases = ::testing::Types<AddToGroupCase<Identifier>,
                                      AddToGroupCase<GUIdentifier>,
                                      CreateGroupCase<Identifier>,
                                      CreateGroupCase<GUIdentifier>>;

struct CaseName {
  template <class Case>
  static std::string GetName(int)
  {
    return std::string(Case::context) + KindName::GetName<typename Case::Element>(0);
  }
};

}
