// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// Notes what the history shows while the command is destroyed: the last command that shares a host
/// destroys it, and the host may look at the history to update a menu.
class LookingBackCommand : public AppendCommand {
public:
  LookingBackCommand(Document& document,
                     const std::string& name,
                     const CommandHistory& history,
                     std::vector<std::string>& seen)
      : AppendCommand(document, name), m_history(history), m_seen(seen)
  {}
  LookingBackCommand(const LookingBackCommand&) = delete;
  LookingBackCommand& operator=(const LookingBackCommand&) = delete;
  ~LookingBackCommand() override { m_seen.push_back(getDescription() + ": " + view(m_history)); }

private:
  const CommandHistory& m_history;
  std::vector<std::string>& m_seen;
};

class HistoryThatIsLookedAt : public HistoryTest {
protected:
  void execute(const std::string& names)
  {
    for (const auto& name : words(names))
      watched.execute(std::make_shared<LookingBackCommand>(document, name, watched, seen));
  }

  std::vector<std::string> seen;
  CommandHistory watched;
};

TEST_F(HistoryThatIsLookedAt, IsInOrderWhileItIsCleared)
{
  execute("A B");

  watched.clear();

  EXPECT_EQ(seen, (std::vector<std::string>{"B: | A", "A: |"}));
}

TEST_F(HistoryThatIsLookedAt, IsInOrderWhileItIsCutOff)
{
  execute("A B C");
  watched.markClean();
  watched.jumpTo(1);

  execute("D");

  EXPECT_EQ(seen, (std::vector<std::string>{"C: A | B", "B: A |"}));
}

TEST_F(HistoryThatIsLookedAt, IsInOrderWhileItIsTrimmed)
{
  watched.setLimit(2);

  execute("A B C");
  watched.setLimit(1);

  EXPECT_EQ(seen, (std::vector<std::string>{"A: B C |", "B: C |"}));
}

TEST_F(HistoryThatIsLookedAt, IsInOrderWhenWhatCannotBeRedoneLeavesIt)
{
  execute("A B! C");

  watched.jumpTo(1);

  EXPECT_EQ(seen, (std::vector<std::string>{"C: * A | B!", "B!: * A |"}));
}

TEST(HistoryThatIsDestroyed, IsInOrderUntilAllCommandsAre)
{
  Document document;
  std::vector<std::string> seen;
  {
    CommandHistory history;
    for (const auto& name : {"A", "B"})
      history.execute(std::make_shared<LookingBackCommand>(document, name, history, seen));
  }

  EXPECT_EQ(seen, (std::vector<std::string>{"B: | A", "A: |"}));
}

}
}
