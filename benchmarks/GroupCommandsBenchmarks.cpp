// SPDX-License-Identifier: MIT
// What the commands cost, beside the bare copies of the list of groups that no command can avoid:
// two for executing (the list before and the list after) and one for whatever hands a list to the
// host, which takes a copy of it.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace Tarvik {
namespace {

template <class T>
using Groups = std::vector<TKGroup<T>>;

template <class T>
Groups<T> makeGroups(std::size_t groupCount, std::size_t memberCount)
{
  Groups<T> groups;
  groups.reserve(groupCount);
  for (std::size_t i = 0; i < groupCount; ++i) {
    groups.emplace_back("Group " + std::to_string(i));
    groups.back().addGroupMembersAtIndex(std::vector<T>(memberCount), 0);
  }
  return groups;
}

/// Hands out one list and takes copies of others into a second one, so that every round of a
/// benchmark starts from the same groups.
template <class T>
class BenchmarkHost : public TKGroupProviderInterface<T> {
public:
  explicit BenchmarkHost(Groups<T> groups) : m_groups(std::move(groups)), m_received(m_groups) {}

  Groups<T>& getGroups() override { return m_groups; }
  std::vector<T> getUngroupedElements() override { return {}; }
  void setGroups(const Groups<T>& groups) override { m_received = groups; }
  std::shared_ptr<CommandBase> createMoveCommand(const T&, const std::vector<T>&, bool) override
  {
    return nullptr;
  }
  std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier&) override
  {
    return {};
  }
  void renameGroup(const Identifier&, const std::string&) override {}
  std::string getElementName(const T&) override { return {}; }

private:
  Groups<T> m_groups;
  Groups<T> m_received;
};

template <class T>
std::shared_ptr<BenchmarkHost<T>> hostOf(const benchmark::State& state)
{
  return std::make_shared<BenchmarkHost<T>>(makeGroups<T>(
      static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1))));
}

/// A member from the middle of the host's groups.
template <class T>
T middleMember(BenchmarkHost<T>& host)
{
  const auto& group = host.getGroups()[host.getGroups().size() / 2];
  return group.getGroupMemberAtIndex(group.numberOfGroupMembers() / 2);
}

/// One member of the middle group goes to the last.
template <class T>
struct Add {
  using Command = AddToTKGroupCmd<T>;

  static Command make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return Command(host, {middleMember(*host)}, host->getGroups().back().getId());
  }
};

/// One member of the middle group goes to a new one.
template <class T>
struct Create {
  using Command = CreateTKGroupCmd<T>;

  static Command make(const std::shared_ptr<BenchmarkHost<T>>& host)
  {
    return Command(host, {middleMember(*host)}, "Group");
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

/// What executing cannot avoid: a list before, a list after, and the host's copy.
template <class T>
void bareExecute(benchmark::State& state)
{
  const auto host = hostOf<T>(state);
  for (auto _ : state) {
    const Groups<T> before = host->getGroups();
    const Groups<T> after = before; // NOLINT(performance-unnecessary-copy-initialization)
    host->setGroups(after);
  }
}

/// What undo and redo cannot avoid: the host's copy.
template <class T>
void bareHandOver(benchmark::State& state)
{
  const auto host = hostOf<T>(state);
  const Groups<T> list = host->getGroups();
  for (auto _ : state)
    host->setGroups(list);
}

void addBenchmark(const std::string& name, void (*function)(benchmark::State&))
{
  benchmark::RegisterBenchmark(name.c_str(), function)
      ->Args({10, 10})
      ->Args({100, 100})
      ->Args({1000, 1000})
      ->Unit(benchmark::kMicrosecond);
}

template <class T>
void addBenchmarks(const std::string& kind)
{
  addBenchmark("bare/execute/" + kind, bareExecute<T>);
  addBenchmark("bare/undo/" + kind, bareHandOver<T>);
  addBenchmark("bare/redo/" + kind, bareHandOver<T>);
  addBenchmark("AddToTKGroupCmd/execute/" + kind, execute<Add<T>, T>);
  addBenchmark("AddToTKGroupCmd/undo/" + kind, undo<Add<T>, T>);
  addBenchmark("AddToTKGroupCmd/redo/" + kind, redo<Add<T>, T>);
  addBenchmark("CreateTKGroupCmd/execute/" + kind, execute<Create<T>, T>);
  addBenchmark("CreateTKGroupCmd/undo/" + kind, undo<Create<T>, T>);
  addBenchmark("CreateTKGroupCmd/redo/" + kind, redo<Create<T>, T>);
}

/// Without this, giving pages back to the system and getting them again hides everything else.
void keepPagesOfTheHeap()
{
#if defined(__GLIBC__)
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_TOP_PAD, 64 * 1024 * 1024);
#endif
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
