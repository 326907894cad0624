// SPDX-License-Identifier: MIT
// The time of the commands, compared with the least that their contract requires: the copies of the
// list of groups (before, after, and the host's own), the groups that a deletion moves, the
// comparisons of a sort. Each benchmark "X/..." has a "bare X/..." that does only that.

#include "BenchmarkHost.h"
#include "Heap.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// The least for a snapshot command, which keeps a before list and an after list.
template <class T>
struct Snapshot {
  static void bareExecute(BenchmarkHost<T>& host)
  {
    const Groups<T> before = host.getGroups();
    const Groups<T> after = before; // NOLINT(performance-unnecessary-copy-initialization)
    host.setGroups(after);
  }

  static void bareHandOver(BenchmarkHost<T>& host) { host.setGroups(host.getGroups()); }
};

/// One member of the middle group goes to the last.
template <class T>
struct Add : Snapshot<T> {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return AddToTKGroupCmd<T>(host, {host->middleMember()}, host->getGroups().back().getId());
  }
};

/// One member of the middle group goes to a new one.
template <class T>
struct Create : Snapshot<T> {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return CreateTKGroupCmd<T>(host, {host->middleMember()}, "Group");
  }
};

/// A new group without members, for a host that copies no lists: only the command copies.
template <class T>
struct CreateEmpty {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    host->takeNoLists();
    return CreateTKGroupCmd<T>(host, {}, "Group");
  }

  static void bareExecute(BenchmarkHost<T>& host)
  {
    const Groups<T> before = host.getGroups();
    const Groups<T> after = before; // NOLINT(performance-unnecessary-copy-initialization)
    benchmark::DoNotOptimize(&after);
  }
};

/// One member of the middle group goes before one of the last.
template <class T>
struct Move : Snapshot<T> {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return MoveTKGroupElementsCmd<T>(host, {host->middleMember()}, host->lastMember(), true);
  }
};

/// One member of the middle group leaves it.
template <class T>
struct Remove : Snapshot<T> {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return RemoveFromTKGroupCmd<T>(host, {host->middleMember()});
  }
};

/// The middle group is deleted, and those after it move up.
template <class T>
struct RemoveGroups : Snapshot<T> {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return RemoveTKGroupsCmd<T>(host, {host->middleGroup().getId()});
  }

  static void bareExecute(BenchmarkHost<T>& host)
  {
    const Groups<T> before = host.getGroups();
    Groups<T> after = before;
    after.erase(after.begin() + static_cast<std::ptrdiff_t>(after.size() / 2));
    host.setGroups(after);
  }
};

/// The middle group gets another name.
template <class T>
struct Rename {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return RenameTKGroupCmd<T>(host, host->middleGroup().getId(), "Another name");
  }

  static void bareExecute(BenchmarkHost<T>& host) { bareHandOver(host); }
  static void bareHandOver(BenchmarkHost<T>& host)
  {
    host.renameGroup(host.middleGroup().getId(), "Another name");
  }
};

bool isNamedBefore(const NameInterface& a, const NameInterface& b)
{
  return StringUtility::toLower(a.getName()) < StringUtility::toLower(b.getName());
}

/// Sorts the members of one group by name, in the plainest way that the contract allows.
template <class T>
void sortMembers(BenchmarkHost<T>& host, TKGroup<T>& group)
{
  auto names = host.getGroupMemberNames(group.getId());
  for (auto& [member, name] : names)
    GroupLists::lowerMemberName(name);
  std::sort(names.begin(), names.end(),
            [](const auto& a, const auto& b) { return a.second < b.second; });
  std::vector<T> members;
  members.reserve(names.size());
  for (const auto& [member, name] : names)
    members.push_back(member);
  group.clear();
  group.addGroupMembersAtIndex(members, -1);
}

/// Groups and members by name. The least is to sort pointers and copy each group once.
template <class T>
struct Sort : Snapshot<T> {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return SortTKGroupsAlphabeticallyCmd<T>(host);
  }

  static void bareExecute(BenchmarkHost<T>& host)
  {
    const Groups<T> before = host.getGroups();
    std::vector<const TKGroup<T>*> pointers;
    pointers.reserve(before.size());
    for (const auto& group : before)
      pointers.push_back(&group);
    std::sort(pointers.begin(), pointers.end(),
              [](const auto* a, const auto* b) { return isNamedBefore(*a, *b); });
    Groups<T> after;
    after.reserve(before.size());
    for (const auto* group : pointers)
      after.push_back(*group);
    finish(host, after);
  }

  static void finish(BenchmarkHost<T>& host, Groups<T>& after)
  {
    for (auto& group : after)
      sortMembers(host, group);
    host.setGroups(after);
  }
};

/// The same with a host that lists no members.
template <class T>
struct SortGroupsOnly : Sort<T> {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    host->listNoMembers();
    return SortTKGroupsAlphabeticallyCmd<T>(host);
  }
};

/// Sorts the groups by value instead of their positions.
template <class T>
struct SortByValue : Sort<T> {
  static void bareExecute(BenchmarkHost<T>& host)
  {
    const Groups<T> before = host.getGroups();
    Groups<T> after = before;
    std::sort(after.begin(), after.end(), isNamedBefore);
    Sort<T>::finish(host, after);
  }
};

/// The selection: all members of the first group.
struct AllOfOneGroup {
  template <class T>
  static std::vector<T> of(BenchmarkHost<T>& host)
  {
    return host.getGroups().front().getGroupMembers();
  }
};

/// The selection: so many members, anywhere in the list.
template <std::size_t count>
struct Scattered {
  template <class T>
  static std::vector<T> of(BenchmarkHost<T>& host)
  {
    std::minstd_rand random(1); // NOLINT: the same in every run
    const auto& groups = host.getGroups();
    std::vector<T> elements;
    elements.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      const auto& members = groups[random() % groups.size()].getGroupMembers();
      elements.push_back(members[random() % members.size()]);
    }
    return elements;
  }
};

/// The selection goes to the end of the last group.
template <class T, class Selected>
struct AddSelection {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return AddToTKGroupCmd<T>(host, Selected::of(*host), host->getGroups().back().getId());
  }
};

/// The selection goes to a new group.
template <class T, class Selected>
struct CreateOfSelection {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return CreateTKGroupCmd<T>(host, Selected::of(*host), "Group");
  }
};

/// The selection goes before a member of the last group.
template <class T, class Selected>
struct MoveSelection {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return MoveTKGroupElementsCmd<T>(host, Selected::of(*host), host->lastMember(), true);
  }
};

/// The selection leaves its groups.
template <class T, class Selected>
struct RemoveSelection {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return RemoveFromTKGroupCmd<T>(host, Selected::of(*host));
  }
};

/// One of so many groups is deleted, evenly over the list.
template <class T, std::size_t distance>
struct RemoveEvery {
  static auto make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    std::vector<Identifier> ids;
    const auto& groups = host->getGroups();
    for (std::size_t i = 0; i < groups.size(); i += distance)
      ids.push_back(groups[i].getId());
    return RemoveTKGroupsCmd<T>(host, ids);
  }
};

template <class Case, class T>
void execute(benchmark::State& state)
{
  const auto host = hostOf<T>(state);
  for (auto _ : state) {
    auto command = Case::make(host);
    command.execute();
  }
}

template <class Case, class T>
void undo(benchmark::State& state)
{
  auto command = Case::make(hostOf<T>(state));
  command.execute();
  for (auto _ : state)
    command.undo();
}

template <class Case, class T>
void redo(benchmark::State& state)
{
  auto command = Case::make(hostOf<T>(state));
  command.execute();
  for (auto _ : state)
    command.redo();
}

template <class Case, class T, bool listsMembers = true>
void bareExecute(benchmark::State& state)
{
  const auto host = hostOf<T>(state);
  if constexpr (!listsMembers)
    host->listNoMembers();
  for (auto _ : state)
    Case::bareExecute(*host);
}

template <class Case, class T>
void bareHandOver(benchmark::State& state)
{
  const auto host = hostOf<T>(state);
  for (auto _ : state)
    Case::bareHandOver(*host);
}

using Function = void (*)(benchmark::State&);

void addBenchmark(const std::string& name, Function function)
{
  benchmark::RegisterBenchmark(name.c_str(), function)
      ->Args({10, 10})
      ->Args({100, 100})
      ->Args({1000, 1000})
      ->Unit(benchmark::kMicrosecond);
}

template <class Case, class T>
void addCommand(const std::string& name, const std::string& kind)
{
  addBenchmark(name + "/execute/" + kind, execute<Case, T>);
  addBenchmark(name + "/undo/" + kind, undo<Case, T>);
  addBenchmark(name + "/redo/" + kind, redo<Case, T>);
  addBenchmark("bare " + name + "/execute/" + kind, bareExecute<Case, T>);
  addBenchmark("bare " + name + "/undo/" + kind, bareHandOver<Case, T>);
  addBenchmark("bare " + name + "/redo/" + kind, bareHandOver<Case, T>);
}

/// Three ways to sort the groups without their members: the command's, pointers, values.
template <class T>
void addGroupSorts(const std::string& kind)
{
  const std::vector<std::pair<std::string, Function>> ways = {
      {"the command", execute<SortGroupsOnly<T>, T>},
      {"pointers and one copy", bareExecute<Sort<T>, T, false>},
      {"groups by value", bareExecute<SortByValue<T>, T, false>}};
  for (const auto& [way, function] : ways)
    benchmark::RegisterBenchmark(("sort groups/" + way + '/' + kind).c_str(), function)
        ->Args({1000, 1000})
        ->Args({10000, 10})
        ->Unit(benchmark::kMicrosecond);
}

/// The command, compared with the two copies of the list.
template <class T>
void addCreations(const std::string& kind)
{
  addBenchmark("create empty/the command/" + kind, execute<CreateEmpty<T>, T>);
  addBenchmark("create empty/two bare copies/" + kind, bareExecute<CreateEmpty<T>, T>);
}

using Sizes = std::vector<std::vector<std::int64_t>>;

void addSized(const std::string& name, Function function, const Sizes& sizes)
{
  auto* const added = benchmark::RegisterBenchmark(name.c_str(), function);
  for (const auto& size : sizes)
    added->Args(size);
  added->Unit(benchmark::kMicrosecond);
}

/// Each command on a selection, beside the copies in "copies/...".
template <class T, class Selected>
void addSelection(const std::string& name, const std::string& kind, const Sizes& sizes)
{
  addSized(name + "/AddToTKGroupCmd/" + kind, execute<AddSelection<T, Selected>, T>, sizes);
  addSized(name + "/CreateTKGroupCmd/" + kind, execute<CreateOfSelection<T, Selected>, T>, sizes);
  addSized(name + "/MoveTKGroupElementsCmd/" + kind, execute<MoveSelection<T, Selected>, T>, sizes);
  addSized(name + "/RemoveFromTKGroupCmd/" + kind, execute<RemoveSelection<T, Selected>, T>, sizes);
}

template <class T>
void addSelections(const std::string& kind)
{
  const Sizes large = {{1000, 1000}};
  const Sizes twoGroups = {{2, 1000}, {2, 10000}, {2, 100000}};
  addSelection<T, Scattered<10>>("10 elements", kind, large);
  addSelection<T, Scattered<1000>>("1000 elements", kind, large);
  addSelection<T, AllOfOneGroup>("a group", kind, twoGroups);
  addSized("every tenth group/RemoveTKGroupsCmd/" + kind, execute<RemoveEvery<T, 10>, T>, large);
  addSized("every other group/RemoveTKGroupsCmd/" + kind, execute<RemoveEvery<T, 2>, T>, large);
  addSized("copies/" + kind, bareExecute<Snapshot<T>, T>, large);
  addSized("copies/" + kind, bareExecute<Snapshot<T>, T>, twoGroups);
}

template <class T>
void addBenchmarks(const std::string& kind)
{
  addCommand<Add<T>, T>("AddToTKGroupCmd", kind);
  addCommand<Create<T>, T>("CreateTKGroupCmd", kind);
  addCommand<Move<T>, T>("MoveTKGroupElementsCmd", kind);
  addCommand<Remove<T>, T>("RemoveFromTKGroupCmd", kind);
  addCommand<RemoveGroups<T>, T>("RemoveTKGroupsCmd", kind);
  addCommand<Rename<T>, T>("RenameTKGroupCmd", kind);
  addCommand<Sort<T>, T>("SortTKGroupsAlphabeticallyCmd", kind);
  addGroupSorts<T>(kind);
  addCreations<T>(kind);
  addSelections<T>(kind);
}

}
}

int main(int argc, char** argv)
{
  Tarvik::keepPagesOfTheHeap();
  Tarvik::addBenchmarks<Tarvik::Identifier>("Identifier");
  Tarvik::addBenchmarks<Tarvik::GUIdentifier>("GUIdentifier");
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
