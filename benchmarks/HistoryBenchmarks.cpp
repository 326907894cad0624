// SPDX-License-Identifier: MIT
// The history with a million entries, beside Qt's undo stack where Qt is installed.

#include "HistoryBenchmarks.h"

#include "CommandPattern/CommandHistory.h"

#if defined(TKM_BENCHMARK_QT)
#include "QtHistoryBenchmarks.h"
#endif

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

}
}

int main(int argc, char** argv)
{
  Tarvik::HistoryBenchmarks::registerAll<Tarvik::MeasuredHistory>("CommandHistory");
#if defined(TKM_BENCHMARK_QT)
  Tarvik::registerQtHistoryBenchmarks();
#endif
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
