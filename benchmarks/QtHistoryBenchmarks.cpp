// SPDX-License-Identifier: MIT
#include "HistoryBenchmarks.h"

#include <QUndoCommand>
#include <QUndoStack>

namespace Tarvik {
namespace {

class QtStep : public QUndoCommand {
public:
  explicit QtStep(int& value) : m_value(value) {}
  void undo() override { --m_value; }
  void redo() override { ++m_value; }

private:
  int& m_value;
};

class MeasuredQtStack {
public:
  explicit MeasuredQtStack(std::size_t limit) { m_stack.setUndoLimit(static_cast<int>(limit)); }

  void push() { m_stack.push(new QtStep(m_value)); }
  void undo() { m_stack.undo(); }
  void redo() { m_stack.redo(); }
  void jumpTo(std::size_t position) { m_stack.setIndex(static_cast<int>(position)); }
  void clear() { m_stack.clear(); }

private:
  int m_value = 0;
  QUndoStack m_stack;
};

BENCHMARK(HistoryBenchmarks::push<MeasuredQtStack>)
    ->Name("push/QUndoStack")
    ->Iterations(HistoryBenchmarks::many);
BENCHMARK(HistoryBenchmarks::pushAtFullLimit<MeasuredQtStack>)
    ->Name("push at the limit/QUndoStack")
    ->Arg(1000)
    ->Arg(100'000)
    ->Arg(1'000'000);
BENCHMARK(HistoryBenchmarks::undoAndRedo<MeasuredQtStack>)->Name("undo and redo/QUndoStack");
BENCHMARK(HistoryBenchmarks::jump<MeasuredQtStack>)
    ->Name("jump over a million and back/QUndoStack")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(HistoryBenchmarks::clear<MeasuredQtStack>)
    ->Name("clear a million/QUndoStack")
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

}
}
