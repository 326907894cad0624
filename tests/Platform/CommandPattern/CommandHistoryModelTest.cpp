// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/CommandTransaction.h"

#include "Platform/CommandPattern/DragCommands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// What a history should do, in the plainest way: numbers instead of commands, one step at a time,
/// and -1 for a clean mark that is lost.
struct Model {
  struct Step {
    int from;
    int to;
    DragTraits traits;
    int size;
    std::vector<std::string> names; ///< of the commands that can fail
    bool isMacro = false;

    std::string text() const
    {
      return isMacro ? "T" : std::to_string(from) + '>' + std::to_string(to);
    }
    bool changedNothing() const { return !isMacro && from == to; }
  };
  using Steps = std::vector<Step>;

  Steps entries;
  std::vector<Steps> transactions;
  int position = 0;
  int clean = 0;
  int limit = 1000;
  int budget = 1'000'000;
  bool drops = false;
  int place = 0;
  std::string failing;    ///< the call that fails
  std::string exhausting; ///< the call that finds no memory, once
  int releasedOnDemand = 0;
  int told = 0;

  int size() const { return static_cast<int>(entries.size()); }
  bool isOpen() const { return !transactions.empty(); }

  int sizeInBytes() const
  {
    int sum = 0;
    for (const auto& entry : entries)
      sum += entry.size;
    return sum;
  }

  bool isClean() const
  {
    return clean == position && std::all_of(transactions.begin(), transactions.end(),
                                            [](const auto& steps) { return steps.empty(); });
  }

  // Each of the following returns whether the history's operation ends without an exception.

  bool execute(int to, const DragTraits& traits, int givenSize)
  {
    const auto succeeds = [&] { return failing != "execute " + traits.name; };
    if (!retried("execute " + traits.name, succeeds, [] { return true; }))
      return false;
    const Step step{.from = place,
                    .to = to,
                    .traits = traits,
                    .size = givenSize >= 0 ? givenSize : sizeOf(traits),
                    .names = {traits.name}};
    place = to;
    keep(step);
    return true;
  }

  bool undo()
  {
    if (position == 0)
      return true;
    if (!retried(
            "undo " + lastName(position - 1), [&] { return stepBack() != Gone::Failed; },
            [&] { return position > 0; }))
      return false;
    tell();
    return true;
  }

  bool redo()
  {
    if (position == size())
      return true;
    if (!retried(
            "redo " + firstName(position), [&] { return stepForward() != Gone::Failed; },
            [&] { return position < size(); }))
      return false;
    tell();
    return true;
  }

  bool jumpTo(int target)
  {
    if (target > size())
      return false;
    if (target == position)
      return true;
    const int start = position;
    const int sizeAtStart = size();
    int wayBack = start;
    bool arrives = true;
    while (arrives && position > target) {
      const auto gone = stepBack();
      arrives = gone != Gone::Failed;
      wayBack -= gone == Gone::Released ? 1 : 0;
    }
    while (arrives && position < target) {
      const auto gone = stepForward();
      arrives = gone != Gone::Failed;
      target -= gone == Gone::Released ? 1 : 0;
    }
    if (!arrives)
      retrace(wayBack);
    if (arrives || position != start || size() != sizeAtStart)
      tell();
    return arrives;
  }

  void markClean() { change(clean, position); }
  void forgetCleanMark() { change(clean, -1); }

  void setLimit(int newLimit)
  {
    change(limit, newLimit);
    trim();
  }

  void setBudget(int newBudget)
  {
    change(budget, newBudget);
    trim();
  }

  int releaseOldest(int count)
  {
    int released = 0;
    for (; released < count && position > 1; ++released)
      takeFirst();
    for (; released < count && size() > position + 1; ++released)
      cutOffAfter(size() - 1);
    if (released > 0)
      tell();
    return released;
  }

  void releaseUndone()
  {
    if (position < size())
      tell();
    cutOffAfter(position);
  }

  void clear()
  {
    if (entries.empty())
      return;
    clean = clean == position ? 0 : -1;
    entries.clear();
    position = 0;
    tell();
  }

  void reset()
  {
    if (!entries.empty() || clean != 0)
      tell();
    entries.clear();
    position = 0;
    clean = 0;
  }

  void begin() { transactions.emplace_back(); }

  void commit()
  {
    close();
    if (!isOpen())
      tell();
  }

  bool rollBack()
  {
    auto& steps = transactions.back();
    for (; !steps.empty(); steps.pop_back()) {
      const auto& names = steps.back().names;
      if (std::any_of(names.begin(), names.end(),
                      [&](const auto& name) { return failing == "undo " + name; })) {
        close();
        if (!isOpen())
          tell();
        return false;
      }
      place = steps.back().from;
    }
    transactions.pop_back();
    if (!isOpen())
      tell();
    return true;
  }

  std::string view() const
  {
    std::string text;
    for (int i = 0; i <= size(); ++i) {
      text += i == clean ? " *" : "";
      text += i == position ? " |" : "";
      text += i < size() ? " " + at(i).text() : "";
    }
    return text.substr(1);
  }

  const Step& at(int index) const { return entries[static_cast<std::size_t>(index)]; }

private:
  enum class Gone { Failed, Released, Kept };

  /// Of a command without a size of its own, the host says 5.
  static int sizeOf(const DragTraits& traits)
  {
    return traits.size > 0 ? static_cast<int>(traits.size) : 5;
  }

  void tell() { ++told; }

  void change(int& variable, int value)
  {
    if (variable != value)
      tell();
    variable = value;
  }

  std::string lastName(int index) const { return at(index).names.back(); }
  std::string firstName(int index) const { return at(index).names.front(); }

  template <class Action, class Condition>
  bool retried(const std::string& call, Action action, Condition isStillPossible)
  {
    if (exhausting == call) {
      exhausting.clear();
      if (releaseOldest(releasedOnDemand) == 0 || !isStillPossible())
        return false;
    }
    return action();
  }

  void keep(Step step)
  {
    if (drops && step.changedNothing())
      return;
    if (isOpen()) {
      append(transactions.back(), std::move(step), true);
      return;
    }
    cutOffAfter(position);
    append(entries, std::move(step), clean != position);
    position = size();
    trim();
    tell();
  }

  static void append(Steps& steps, Step step, bool mayMerge)
  {
    const bool merges = mayMerge && !steps.empty() && !steps.back().isMacro &&
                        !step.traits.hand.empty() && steps.back().traits.hand == step.traits.hand;
    if (!merges) {
      steps.push_back(std::move(step));
      return;
    }
    auto& last = steps.back();
    last.to = step.to;
    last.traits.size += step.traits.size;
    last.size = sizeOf(last.traits);
    if (last.changedNothing())
      steps.pop_back();
  }

  void close()
  {
    const auto steps = std::move(transactions.back());
    transactions.pop_back();
    if (steps.empty())
      return;
    Step macro{.from = steps.front().from,
               .to = steps.back().to,
               .traits = {},
               .size = 0,
               .names = {},
               .isMacro = true};
    for (const auto& step : steps) {
      macro.size += step.size;
      macro.names.insert(macro.names.end(), step.names.begin(), step.names.end());
      macro.traits.isRedoCapable = macro.traits.isRedoCapable && step.traits.isRedoCapable;
      macro.traits.losesRedoInUndo = macro.traits.losesRedoInUndo || step.traits.losesRedoInUndo;
    }
    if (isOpen()) {
      transactions.back().push_back(macro);
      return;
    }
    cutOffAfter(position);
    entries.push_back(macro);
    ++position;
    trim();
  }

  bool fails(const std::string& operation, int index) const
  {
    const auto& names = at(index).names;
    return std::any_of(names.begin(), names.end(),
                       [&](const auto& name) { return failing == operation + ' ' + name; });
  }

  Gone stepBack()
  {
    const auto step = at(position - 1);
    if (fails("undo", position - 1))
      return Gone::Failed;
    place = step.from;
    --position;
    if (!step.traits.isRedoCapable || step.traits.losesRedoInUndo) {
      cutOffAfter(position);
      return Gone::Released;
    }
    return droppedAt(position) ? Gone::Released : Gone::Kept;
  }

  Gone stepForward()
  {
    if (fails("redo", position))
      return Gone::Failed;
    place = at(position).to;
    if (droppedAt(position))
      return Gone::Released;
    ++position;
    return Gone::Kept;
  }

  bool droppedAt(int index)
  {
    if (!drops || !at(index).changedNothing())
      return false;
    entries.erase(entries.begin() + index);
    clean -= clean > index ? 1 : 0;
    return true;
  }

  void retrace(int target)
  {
    while (position > target && stepBack() != Gone::Failed) {
    }
    while (position < std::min(target, size())) {
      const auto gone = stepForward();
      if (gone == Gone::Failed)
        return;
      target -= gone == Gone::Released ? 1 : 0;
    }
  }

  void cutOffAfter(int last)
  {
    while (size() > last)
      entries.pop_back();
    if (clean > last)
      clean = -1;
  }

  void takeFirst()
  {
    entries.erase(entries.begin());
    --position;
    clean = clean > 0 ? clean - 1 : -1;
  }

  void trim()
  {
    while (size() > limit || (size() > 1 && sizeInBytes() > budget))
      if (position > 0)
        takeFirst();
      else
        cutOffAfter(size() - 1);
  }
};

/// A drag that tries to operate the history whenever it runs, and whenever it is destroyed.
class MeddlingDrag : public Drag {
public:
  MeddlingDrag(Desk& desk, int to, DragTraits traits, CommandHistory& history, int& allowed)
      : Drag(desk, to, std::move(traits)), m_history(history), m_allowed(allowed)
  {}
  MeddlingDrag(const MeddlingDrag&) = delete;
  MeddlingDrag& operator=(const MeddlingDrag&) = delete;
  ~MeddlingDrag() override
  {
    // Allowed if the history has nothing to do with this command any more.
    meddle();
    for (const auto& entry : m_history.entries())
      EXPECT_NE(entry, nullptr);
    EXPECT_LE(m_history.position(), m_history.entries().size());
  }

  void execute() override
  {
    m_allowed += meddle() ? 1 : 0;
    Drag::execute();
  }
  void undo() override
  {
    m_allowed += meddle() ? 1 : 0;
    Drag::undo();
  }
  void redo() override
  {
    m_allowed += meddle() ? 1 : 0;
    Drag::redo();
  }

private:
  bool meddle()
  {
    try {
      m_history.setLimit(m_history.limit()); // changes nothing when it is allowed
      return true;
    } catch (const std::logic_error&) {
      return false;
    }
  }

  CommandHistory& m_history;
  int& m_allowed;
};

/// Does the same with a history and with the model, and compares them.
class HistoryModel : public DragTest {
protected:
  HistoryModel() : m_subscription(history.subscribe([this](const auto&) { ++m_told; }))
  {
    history.setSizeFunction([](const CommandBase&) { return std::size_t(5); });
    history.setOutOfMemoryHandler([this](CommandHistory& full) {
      return full.releaseOldest(static_cast<std::size_t>(m_model.releasedOnDemand)) > 0;
    });
  }

  /// Draws an operation and runs it.
  /// @return what it was, to be printed
  std::string runAny(std::mt19937_64& random)
  {
    m_random = &random;
    const auto kind = below(34);
    if (kind < 9)
      return execute();
    if (kind < 12)
      return outside(
          "undo", [this] { history.undo(); }, [this] { return m_model.undo(); });
    if (kind < 15)
      return outside(
          "redo", [this] { history.redo(); }, [this] { return m_model.redo(); });
    if (kind < 18) {
      const int target = below(m_model.size() + 2);
      return outside(
          "jump to " + std::to_string(target),
          [&] { history.jumpTo(static_cast<std::size_t>(target)); },
          [&] { return m_model.jumpTo(target); });
    }
    if (kind < 20)
      return outside(
          "mark clean", [this] { history.markClean(); },
          [this] { return m_model.markClean(), true; });
    if (kind < 24)
      return transact();
    if (kind < 27)
      return configure();
    if (kind < 29)
      return forget();
    return fail();
  }

  /// What is wrong with the history; empty when it agrees with the model.
  std::string difference() const
  {
    if (view(history) != m_model.view())
      return "the history is \"" + view(history) + "\" rather than \"" + m_model.view() + '"';
    const std::vector<std::pair<std::string, std::pair<int, int>>> numbers = {
        {"the place", {desk.place, m_model.place}},
        {"how often listeners were told", {m_told, m_model.told}},
        {"the size in bytes", {static_cast<int>(history.sizeInBytes()), m_model.sizeInBytes()}},
        {"isClean", {history.isClean() ? 1 : 0, m_model.isClean() ? 1 : 0}},
        {"canUndo", {history.canUndo() ? 1 : 0, m_model.position > 0 && !m_model.isOpen() ? 1 : 0}},
        {"canRedo",
         {history.canRedo() ? 1 : 0,
          m_model.position < m_model.size() && !m_model.isOpen() ? 1 : 0}},
        {"calls that were wrongly allowed", {m_allowed, 0}},
        {"exceptions that differ", {m_wrongOutcomes, 0}}};
    for (const auto& [what, values] : numbers)
      if (values.first != values.second)
        return what + ": " + std::to_string(values.first) + " rather than " +
               std::to_string(values.second);
    return "";
  }

  void startAnew()
  {
    while (!m_open.empty())
      m_open.pop_back();
    history.setLimit(1000);
    history.setBudget(1'000'000);
    history.setDropsCommandsWithoutChange(false);
    history.reset();
    desk = {};
    m_told = 0;
    m_executed = 0;
    m_model = {};
  }

private:
  int below(int bound)
  {
    return static_cast<int>((*m_random)() % static_cast<std::uint64_t>(bound));
  }

  bool oneIn(int number) { return below(number) == 0; }

  /// Runs both, and compares whether they end with an exception.
  void runBoth(const std::function<void()>& real, const std::function<bool()>& model)
  {
    const bool expected = model();
    bool succeeded = true;
    try {
      real();
    } catch (const Failure&) {
      succeeded = false;
    } catch (const std::bad_alloc&) {
      succeeded = false;
    } catch (const std::out_of_range&) {
      succeeded = false;
    }
    desk.exhausting.clear();
    m_model.exhausting.clear();
    m_wrongOutcomes += succeeded == expected ? 0 : 1;
  }

  /// Runs what is refused within a transaction.
  std::string outside(const std::string& name,
                      const std::function<void()>& real,
                      const std::function<bool()>& model)
  {
    if (!m_model.isOpen())
      runBoth(real, model);
    else
      EXPECT_THROW(real(), std::logic_error) << name;
    return name;
  }

  std::string execute()
  {
    DragTraits traits;
    traits.hand = oneIn(2) ? "left" : oneIn(2) ? "right" : "";
    traits.size = static_cast<std::size_t>(oneIn(3) ? 0 : below(30));
    traits.name = "c" + std::to_string(++m_executed);
    traits.isRedoCapable = !oneIn(8);
    traits.losesRedoInUndo = oneIn(8);
    const int to = oneIn(4) ? m_model.place : below(4);
    const int givenSize = oneIn(4) ? below(60) : -1;
    if (oneIn(10))
      letFail("execute " + traits.name);
    if (oneIn(10))
      exhaust("execute " + traits.name);
    const auto drag = std::make_shared<MeddlingDrag>(desk, to, traits, history, m_allowed);
    const auto size = givenSize >= 0 ? std::optional(static_cast<std::size_t>(givenSize))
                                     : std::optional<std::size_t>();
    // a merge of commands whose sizes were given is tested elsewhere
    runBoth([&] { history.execute(drag, size); },
            [&] { return m_model.execute(to, traits, givenSize); });
    return "execute " + traits.name + " to " + std::to_string(to) + " by " + traits.hand +
           " of size " + std::to_string(givenSize) + '/' + std::to_string(traits.size);
  }

  std::string transact()
  {
    if (m_open.empty() || (m_open.size() < 3 && oneIn(4))) {
      m_open.push_back(std::make_unique<CommandTransaction>(history, "T"));
      m_model.begin();
      return "begin a transaction";
    }
    if (oneIn(2)) {
      letFail(""); // see fail()
      m_open.back()->commit();
      m_open.pop_back();
      m_model.commit();
      return "commit";
    }
    if (oneIn(2)) {
      runBoth([this] { m_open.back()->rollBack(); }, [this] { return m_model.rollBack(); });
      m_open.pop_back();
      return "roll back";
    }
    m_open.pop_back();
    m_model.rollBack();
    return "abandon a transaction";
  }

  std::string configure()
  {
    if (oneIn(3)) {
      const int limit = below(10);
      history.setLimit(static_cast<std::size_t>(limit));
      m_model.setLimit(limit);
      return "set limit " + std::to_string(limit);
    }
    if (oneIn(2)) {
      const int budget = below(150);
      history.setBudget(static_cast<std::size_t>(budget));
      m_model.setBudget(budget);
      return "set budget " + std::to_string(budget);
    }
    m_model.drops = oneIn(2);
    history.setDropsCommandsWithoutChange(m_model.drops);
    return m_model.drops ? "drop commands without change" : "keep commands without change";
  }

  std::string forget()
  {
    switch (below(8)) {
    case 0:
      return outside(
          "clear", [this] { history.clear(); }, [this] { return m_model.clear(), true; });
    case 1:
      return outside(
          "reset", [this] { history.reset(); }, [this] { return m_model.reset(), true; });
    case 2:
    case 3:
      history.forgetCleanMark();
      m_model.forgetCleanMark();
      return "forget the clean mark";
    case 4:
    case 5:
      history.releaseUndone();
      m_model.releaseUndone();
      return "release what is undone";
    default: {
      const int count = below(4);
      EXPECT_EQ(static_cast<int>(history.releaseOldest(static_cast<std::size_t>(count))),
                m_model.releaseOldest(count));
      return "release " + std::to_string(count);
    }
    }
  }

  /// Lets a later call fail, or none, or the next one find no memory.
  std::string fail()
  {
    if (m_model.isOpen() && !m_model.transactions.back().empty() && oneIn(2)) {
      const auto& steps = m_model.transactions.back();
      const auto& step = steps[static_cast<std::size_t>(below(static_cast<int>(steps.size())))];
      return letFail("undo " + step.names.back());
    }
    if (m_model.entries.empty() || oneIn(3))
      return letFail("");
    // Of a macro, the command that runs first: others are reversed as far as they can be redone,
    // which the tests of macros check.
    const auto& names = m_model.at(below(m_model.size())).names;
    if (!oneIn(3) || m_model.isOpen())
      return letFail(oneIn(2) ? "undo " + names.back() : "redo " + names.front());
    letFail("");
    if (oneIn(2) && m_model.position > 0) {
      exhaust("undo " + m_model.at(m_model.position - 1).names.back());
      runBoth([this] { history.undo(); }, [this] { return m_model.undo(); });
      return "undo, but find no memory at first";
    }
    if (m_model.position < m_model.size()) {
      exhaust("redo " + m_model.at(m_model.position).names.front());
      runBoth([this] { history.redo(); }, [this] { return m_model.redo(); });
      return "redo, but find no memory at first";
    }
    return "let nothing fail";
  }

  std::string letFail(const std::string& call)
  {
    desk.failing = {call};
    m_model.failing = call;
    return call.empty() ? "let nothing fail" : "let " + call + " fail";
  }

  void exhaust(const std::string& call)
  {
    desk.exhausting = {call};
    m_model.exhausting = call;
    m_model.releasedOnDemand = below(4);
  }

  Model m_model;
  std::mt19937_64* m_random = nullptr;
  int m_told = 0;
  int m_executed = 0;
  int m_allowed = 0;
  int m_wrongOutcomes = 0;
  std::vector<std::unique_ptr<CommandTransaction>> m_open;
  CommandHistory::Subscription m_subscription;
};

/// `TKM_MODEL_SEQUENCES` sets how many sequences are run.
TEST_F(HistoryModel, AgreesWithTheHistoryWhateverIsDone)
{
  const char* const asked = std::getenv("TKM_MODEL_SEQUENCES"); // NOLINT(concurrency-mt-unsafe)
  const auto sequences = asked != nullptr ? std::stoul(asked) : 4000;
  constexpr int operationsPerSequence = 50;
  for (unsigned long seed = 1; seed <= sequences; ++seed) {
    startAnew();
    std::mt19937_64 random(seed);
    std::vector<std::string> operations;
    for (int i = 0; i < operationsPerSequence; ++i) {
      operations.push_back(runAny(random));
      const auto wrong = difference();
      ASSERT_EQ(wrong, "") << "seed " << seed << ":\n  " << joined(operations, "\n  ");
    }
  }
}

}
}
