// SPDX-License-Identifier: MIT
// The time of a compact command, compared with the command that it runs and with the copy of the
// list that any host makes: one element moves among groups x members.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

using Groups = std::vector<TKGroup<Identifier>>;

class CopyingHost : public TKGroupProviderInterface<Identifier> {
public:
  CopyingHost(std::size_t groupCount, std::size_t memberCount) : m_groups(groupCount)
  {
    for (auto& group : m_groups)
      group.addGroupMembersAtIndex(std::vector<Identifier>(memberCount), -1);
  }

  Groups& getGroups() override { return m_groups; }
  void setGroups(const Groups& groups) override
  {
    auto copy = groups;
    m_groups.swap(copy);
  }
  std::vector<Identifier> getUngroupedElements() override { return {}; }
  std::shared_ptr<CommandBase>
  createMoveCommand(const Identifier&, const std::vector<Identifier>&, bool) override
  {
    return nullptr;
  }
  std::vector<std::pair<Identifier, std::string>> getGroupMemberNames(const Identifier&) override
  {
    return {};
  }
  void renameGroup(const Identifier&, const std::string&) override {}
  std::string getElementName(const Identifier&) override { return {}; }

private:
  Groups m_groups;
};

/// A host, and the command that moves one element from its first group to its last one.
class OneElement {
public:
  explicit OneElement(const benchmark::State& state)
      : m_host(std::make_shared<CopyingHost>(static_cast<std::size_t>(state.range(0)),
                                             static_cast<std::size_t>(state.range(1)))),
        m_element(m_host->getGroups().front().getGroupMembers().back())
  {}

  CopyingHost& host() { return *m_host; }

  std::shared_ptr<CommandBase> plain() { return make(m_host); }

  std::shared_ptr<CompactTKGroupCmd<Identifier>> compact()
  {
    return std::make_shared<CompactTKGroupCmd<Identifier>>(
        m_host, [this](const auto& provider) { return make(provider); });
  }

private:
  std::shared_ptr<CommandBase>
  make(const std::shared_ptr<TKGroupProviderInterface<Identifier>>& provider)
  {
    return std::make_shared<AddToTKGroupCmd<Identifier>>(provider, std::vector{m_element},
                                                         m_host->getGroups().back().getId());
  }

  std::shared_ptr<CopyingHost> m_host;
  Identifier m_element;
};

void BM_HostCopy(benchmark::State& state)
{
  OneElement one(state);
  const auto groups = one.host().getGroups();
  for (auto _ : state)
    one.host().setGroups(groups);
}

template <class Make>
void execute(benchmark::State& state, Make make)
{
  OneElement one(state);
  for (auto _ : state) {
    const auto command = make(one);
    command->execute();
    state.PauseTiming();
    command->undo();
    state.ResumeTiming();
  }
}

void BM_ExecutePlain(benchmark::State& state)
{
  execute(state, [](OneElement& one) { return one.plain(); });
}

void BM_ExecuteCompact(benchmark::State& state)
{
  execute(state, [](OneElement& one) { return one.compact(); });
}

void BM_UndoAndRedoCompact(benchmark::State& state)
{
  OneElement one(state);
  const auto command = one.compact();
  command->execute();
  state.counters["bytes"] = static_cast<double>(command->sizeInBytes());
  for (auto _ : state) {
    command->undo();
    command->redo();
  }
}

BENCHMARK(BM_HostCopy)->Args({100, 1000})->Args({1000, 1000});
BENCHMARK(BM_ExecutePlain)->Args({100, 1000})->Args({1000, 1000});
BENCHMARK(BM_ExecuteCompact)->Args({100, 1000})->Args({1000, 1000});
BENCHMARK(BM_UndoAndRedoCompact)->Args({100, 1000})->Args({1000, 1000});

}
}

BENCHMARK_MAIN();
