// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// What a history should do, in the plainest way: names instead of commands, one step at a time,
/// and -1 for a clean mark that is lost.
struct Model {
  using Names = std::vector<std::string>;

  Names entries;
  int position = 0;
  int clean = 0;
  int limit = 1000;
  Names document;
  std::string failing; ///< the call that fails
  int told = 0;

  int size() const { return static_cast<int>(entries.size()); }

  void execute(const std::string& name)
  {
    if (failing == "execute " + name)
      return;
    document.push_back(name);
    cutOffAfter(position);
    entries.push_back(name);
    ++position;
    trim();
    ++told;
  }

  bool undo()
  {
    if (position == 0 || !stepBack())
      return false;
    ++told;
    return true;
  }

  bool redo()
  {
    if (position == size() || !stepForward())
      return false;
    ++told;
    return true;
  }

  void jumpTo(int target)
  {
    if (target > size() || target == position)
      return;
    const int start = position;
    const int sizeAtStart = size();
    bool arrives = true;
    while (arrives && position != target)
      arrives = position > target ? stepBack() : stepForward();
    if (!arrives) {
      while (position > start && stepBack()) {
      }
      while (position < start && position < size() && stepForward()) {
      }
    }
    if (position != start || size() != sizeAtStart)
      ++told;
  }

  void markClean()
  {
    if (clean == position)
      return;
    clean = position;
    ++told;
  }

  void setLimit(int newLimit)
  {
    if (newLimit == limit)
      return;
    limit = newLimit;
    trim();
    ++told;
  }

  void clear()
  {
    if (entries.empty())
      return;
    clean = clean == position ? 0 : -1;
    entries.clear();
    position = 0;
    ++told;
  }

  std::string view() const
  {
    std::string text;
    for (int i = 0; i <= size(); ++i) {
      text += i == clean ? " *" : "";
      text += i == position ? " |" : "";
      text += i < size() ? " " + entries[static_cast<std::size_t>(i)] : "";
    }
    return text.substr(1);
  }

private:
  bool stepBack()
  {
    const auto name = entries[static_cast<std::size_t>(position - 1)];
    if (failing == "undo " + name)
      return false;
    document.pop_back();
    --position;
    if (name.back() == '!')
      cutOffAfter(position);
    return true;
  }

  bool stepForward()
  {
    const auto name = entries[static_cast<std::size_t>(position)];
    if (failing == "redo " + name)
      return false;
    document.push_back(name);
    ++position;
    return true;
  }

  void cutOffAfter(int last)
  {
    while (size() > last)
      entries.pop_back();
    if (clean > last)
      clean = -1;
  }

  void trim()
  {
    while (size() > limit)
      if (position > 0) {
        entries.erase(entries.begin());
        --position;
        clean = clean > 0 ? clean - 1 : -1;
      } else {
        cutOffAfter(size() - 1);
      }
  }
};

/// Does the same with a history and with the model, and compares them.
class HistoryModel : public HistoryTest {
protected:
  HistoryModel() : m_subscription(history.subscribe([this](const auto&) { ++m_told; })) {}

  /// Draws an operation and runs it.
  /// @return what it was, to be printed
  std::string runAny(std::mt19937_64& random)
  {
    const auto below = [&](int bound) {
      return static_cast<int>(random() % static_cast<std::uint64_t>(bound));
    };
    const auto quietly = [](auto action) {
      try {
        action();
      } catch (
          const Failure&) { // NOLINT(bugprone-empty-catch): the history and the document show it
      } catch (const std::out_of_range&) { // NOLINT(bugprone-empty-catch): as above
      }
    };

    const auto kind = below(20);
    if (kind < 6) {
      const auto name = "c" + std::to_string(++m_executed) + (below(4) == 0 ? "!" : "");
      if (below(8) == 0)
        failAt("execute " + name);
      quietly([&] { execute(name); });
      m_model.execute(name);
      return "execute " + name;
    }
    if (kind < 9) {
      quietly([&] { history.undo(); });
      m_model.undo();
      return "undo";
    }
    if (kind < 12) {
      quietly([&] { history.redo(); });
      m_model.redo();
      return "redo";
    }
    if (kind < 15) {
      const int target = below(m_model.size() + 2);
      quietly([&] { history.jumpTo(static_cast<std::size_t>(target)); });
      m_model.jumpTo(target);
      return "jump to " + std::to_string(target);
    }
    if (kind < 16) {
      history.markClean();
      m_model.markClean();
      return "mark clean";
    }
    if (kind < 17) {
      const int limit = below(10);
      history.setLimit(static_cast<std::size_t>(limit));
      m_model.setLimit(limit);
      return "set limit " + std::to_string(limit);
    }
    if (kind < 18 && below(4) == 0) {
      history.clear();
      m_model.clear();
      return "clear";
    }
    if (kind < 19 && !m_model.entries.empty()) {
      const auto& name = m_model.entries[static_cast<std::size_t>(below(m_model.size()))];
      return failAt((below(2) == 0 ? "undo " : "redo ") + name);
    }
    return failAt("");
  }

  /// What is wrong with the history; empty when it agrees with the model.
  std::string difference() const
  {
    if (view(history) != m_model.view())
      return "the history is \"" + view(history) + "\" rather than \"" + m_model.view() + '"';
    if (document.text() != joined(m_model.document, " "))
      return "the document is \"" + document.text() + "\" rather than \"" +
             joined(m_model.document, " ") + '"';
    if (m_told != m_model.told)
      return "listeners were told " + std::to_string(m_told) + " times rather than " +
             std::to_string(m_model.told);
    if (history.isClean() != (m_model.clean == m_model.position) ||
        history.canUndo() != (m_model.position > 0) ||
        history.canRedo() != (m_model.position < m_model.size()))
      return "isClean, canUndo or canRedo do not agree with \"" + view(history) + '"';
    return "";
  }

  void startAnew()
  {
    history.setLimit(1000);
    history.clear();
    history.markClean();
    m_told = 0;
    m_executed = 0;
    document = {};
    m_model = {};
  }

private:
  std::string failAt(const std::string& call)
  {
    document.failNowhere();
    document.failAt(call);
    m_model.failing = call;
    return call.empty() ? "let nothing fail" : "let " + call + " fail";
  }

  Model m_model;
  int m_told = 0;
  int m_executed = 0;
  CommandHistory::Subscription m_subscription;
};

TEST_F(HistoryModel, AgreesWithTheHistoryWhateverIsDone)
{
  constexpr int sequences = 4000;
  constexpr int operationsPerSequence = 40;
  for (unsigned int seed = 1; seed <= sequences; ++seed) {
    startAnew();
    std::mt19937_64 random(seed);
    std::vector<std::string> operations;
    for (int i = 0; i < operationsPerSequence; ++i) {
      operations.push_back(runAny(random));
      const auto wrong = difference();
      ASSERT_EQ(wrong, "") << "seed " << seed << ":\n  " << joined(operations, "\n  ");
    }
    document.takeCalls();
  }
}

}
}
