// SPDX-License-Identifier: MIT
// The history with a million entries. QtHistoryBenchmarks.cpp measures Qt's undo stack beside it.

#include "HistoryBenchmarks.h"

#include "CommandPattern/CommandHistory.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace Tarvik {
namespace {

class Step : public CommandBase {
public:
  explicit Step(int& value) : CommandBase({}), m_value(value) {}
  void execute() override { ++m_value; }
  void undo() override { --m_value; }
  void redo() override { ++m_value; }

private:
  int& m_value;
};

class MeasuredHistory {
public:
  explicit MeasuredHistory(std::size_t limit)
      : m_history(limit == 0 ? CommandHistory::unlimited : limit)
  {}

  void push() { m_history.execute(std::make_shared<Step>(m_value)); }
  void undo() { m_history.undo(); }
  void redo() { m_history.redo(); }
  void jumpTo(std::size_t position) { m_history.jumpTo(position); }
  void clear() { m_history.clear(); }

private:
  int m_value = 0;
  CommandHistory m_history;
};

BENCHMARK(HistoryBenchmarks::push<MeasuredHistory>)
    ->Name("push/CommandHistory")
    ->Iterations(HistoryBenchmarks::many);
BENCHMARK(HistoryBenchmarks::pushAtFullLimit<MeasuredHistory>)
    ->Name("push at the limit/CommandHistory")
    ->Arg(1000)
    ->Arg(100'000)
    ->Arg(1'000'000);
BENCHMARK(HistoryBenchmarks::undoAndRedo<MeasuredHistory>)->Name("undo and redo/CommandHistory");
BENCHMARK(HistoryBenchmarks::jump<MeasuredHistory>)
    ->Name("jump over a million and back/CommandHistory")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(HistoryBenchmarks::clear<MeasuredHistory>)
    ->Name("clear a million/CommandHistory")
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

}
}

BENCHMARK_MAIN();
