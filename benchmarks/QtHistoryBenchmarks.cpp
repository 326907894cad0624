// SPDX-License-Identifier: MIT
#include "QtHistoryBenchmarks.h"

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

}

void registerQtHistoryBenchmarks()
{
  HistoryBenchmarks::registerAll<MeasuredQtStack>("QUndoStack");
}

}
