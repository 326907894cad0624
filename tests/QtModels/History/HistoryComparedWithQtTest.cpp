// SPDX-License-Identifier: MIT
// The same random steps on a History and on a QUndoStack: both must be in the same state after each
// step, and send the same signals.

#include "QtModels/History/History.h"
#include "QtModels/Support/Signals.h"
#include "QtModels/Support/TextCommand.h"

#include <QtGui/QAction>
#include <QtGui/QUndoStack>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// A TextCommand, or a TypingCommand when it merges, as a Qt program would write it.
class QtTextCommand : public QUndoCommand {
public:
  QtTextCommand(std::string& document, std::string text, bool merges)
      : QUndoCommand(QString::fromStdString("Type " + text)),
        m_document(document),
        m_text(std::move(text)),
        m_merges(merges)
  {}

  void undo() override { m_document.resize(m_document.size() - m_text.size()); }
  void redo() override { m_document += m_text; }
  int id() const override { return m_merges ? 1 : -1; }

  bool mergeWith(const QUndoCommand* other) override
  {
    m_text += static_cast<const QtTextCommand*>(other)->m_text;
    return true;
  }

private:
  std::string& m_document;
  std::string m_text;
  bool m_merges;
};

/// Leaves signals out that say what has been said before, as a History does. An index is always
/// told.
class WithoutRepetitions {
public:
  std::vector<std::string> operator()(const std::vector<std::string>& sent)
  {
    std::vector<std::string> result;
    for (const auto& each : sent) {
      const auto name = each.substr(0, each.find(' '));
      if (name == "index" || m_told[name] != each)
        result.push_back(each);
      m_told[name] = each;
    }
    return result;
  }

private:
  std::map<std::string, std::string> m_told{{"canUndo", "canUndo false"},
                                            {"undoText", "undoText "},
                                            {"canRedo", "canRedo false"},
                                            {"redoText", "redoText "},
                                            {"clean", "clean true"}};
};

/// A History and a QUndoStack, each with its document.
class Both {
public:
  explicit Both(int limit)
  {
    history.setUndoLimit(limit);
    stack.setUndoLimit(limit);
    ourSignals.take();
  }

  void push(const std::string& text, bool merges)
  {
    if (merges)
      history.push(std::make_shared<TypingCommand>(ours, text, "Type " + text));
    else
      history.push(std::make_shared<TextCommand>(ours, text, "Type " + text));
    stack.push(new QtTextCommand(qts, text, merges));
  }

  template <class Step>
  void step(Step step)
  {
    step(history);
    step(stack);
  }

  void expectEqual()
  {
    EXPECT_EQ(ours, qts);
    EXPECT_EQ(history.index(), stack.index());
    EXPECT_EQ(history.count(), stack.count());
    EXPECT_EQ(history.cleanIndex(), stack.cleanIndex());
    EXPECT_EQ(history.isClean(), stack.isClean());
    EXPECT_EQ(history.canUndo(), stack.canUndo());
    EXPECT_EQ(history.canRedo(), stack.canRedo());
    for (int i = 0; i < stack.count(); ++i)
      EXPECT_EQ(history.text(i), stack.text(i)) << i;
    EXPECT_EQ(ourUndo->text(), qtsUndo->text());
    EXPECT_EQ(ourRedo->text(), qtsRedo->text());
    EXPECT_EQ(ourUndo->isEnabled(), qtsUndo->isEnabled());
    EXPECT_EQ(ourRedo->isEnabled(), qtsRedo->isEnabled());
    EXPECT_EQ(ourSignals.take(), withoutRepetitions(qtsSignals.take()));
  }

  std::string ours;
  std::string qts;
  History history;
  QUndoStack stack;

private:
  QAction* ourUndo = history.createUndoAction(&history);
  QAction* ourRedo = history.createRedoAction(&history);
  QAction* qtsUndo = stack.createUndoAction(&stack);
  QAction* qtsRedo = stack.createRedoAction(&stack);
  Signals ourSignals{history};
  Signals qtsSignals{stack};
  WithoutRepetitions withoutRepetitions;
};

void doMacro(Both& both, int commands)
{
  both.step([](auto& each) { each.beginMacro("Macro"); });
  for (int i = 0; i < commands; ++i)
    both.push("m", false);
  both.step([](auto& each) { each.endMacro(); });
}

void doRandomStep(Both& both, std::mt19937& random)
{
  const auto anyOf = [&](int n) { return std::uniform_int_distribution(0, n - 1)(random); };
  const int index = anyOf(both.stack.count() + 2);
  switch (anyOf(12)) {
  case 0:
  case 1:
  case 2:
    return both.push(std::string(1, static_cast<char>('a' + anyOf(26))), false);
  case 3:
  case 4:
    return both.push(std::string(1, static_cast<char>('A' + anyOf(26))), true);
  case 5:
  case 6:
    return both.step([](auto& each) { each.undo(); });
  case 7:
    return both.step([](auto& each) { each.redo(); });
  case 8:
    return both.step([&](auto& each) { each.setIndex(index); });
  case 9:
    return both.step([](auto& each) { each.setClean(); });
  case 10:
    if (both.stack.count() > 0 && anyOf(3) == 0) // else QUndoStack::clear() does nothing
      return both.step([](auto& each) { each.clear(); });
    return both.step([](auto& each) { each.resetClean(); });
  default:
    return doMacro(both, 1 + anyOf(3));
  }
}

class HistoryComparedWithQt : public ::testing::TestWithParam<unsigned> {};

INSTANTIATE_TEST_SUITE_P(Seeds, HistoryComparedWithQt, ::testing::Range(0U, 40U));

TEST_P(HistoryComparedWithQt, IsInTheSameStateAndSendsTheSameSignals)
{
  std::mt19937 random(GetParam());
  Both both(GetParam() % 4 == 0 ? 5 : 0);

  for (int step = 0; step < 150 && !HasFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    doRandomStep(both, random);
    both.expectEqual();
  }
}

}
}
