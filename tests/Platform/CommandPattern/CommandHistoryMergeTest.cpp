// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/DragCommands.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace Tarvik {
namespace {

class MergedCommands : public DragTest {};

TEST_F(MergedCommands, AreOneEntryThatIsUndoneAndRedoneAsOne)
{
  drag(1, {.hand = "left"});
  drag(2, {.hand = "left"});
  drag(3, {.hand = "left"});

  EXPECT_EQ(view(history), "* 0>3 |");
  history.undo();
  EXPECT_EQ(desk.place, 0);
  history.redo();
  EXPECT_EQ(desk.place, 3);
}

TEST_F(MergedCommands, AreThoseThatTheLastCommandTakesOver)
{
  drag(1, {.hand = "left"});
  drag(2, {.hand = "right"});
  drag(3);
  drag(4);

  EXPECT_EQ(view(history), "* 0>1 1>2 2>3 3>4 |");
}

TEST_F(MergedCommands, NeverChangeTheCleanState)
{
  drag(1, {.hand = "left"});
  history.markClean();

  drag(2, {.hand = "left"});
  drag(3, {.hand = "left"});

  EXPECT_EQ(view(history), "0>1 * 1>3 |");
}

TEST_F(MergedCommands, MergeIntoTheLastEntryInEffectAndReleaseWhatCouldBeRedone)
{
  drag(1, {.hand = "left"});
  drag(9);
  history.undo();

  drag(2, {.hand = "left"});

  EXPECT_EQ(view(history), "* 0>2 |");
}

TEST_F(MergedCommands, LeaveNoEntryWhenTheyCancelOut)
{
  drag(5);
  history.markClean();
  drag(6, {.hand = "left"});
  drag(5, {.hand = "left"});

  EXPECT_EQ(view(history), "0>5 * |");
  EXPECT_TRUE(history.isClean());
}

TEST_F(MergedCommands, AreToldOnceAndReported)
{
  drag(1, {.hand = "left"});
  int told = 0;
  const auto subscription = history.subscribe([&](const auto&) { ++told; });

  EXPECT_TRUE(drag(2, {.hand = "left"}));
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(drag(0, {.hand = "left"})); // cancels out
  EXPECT_EQ(told, 2);
}

TEST_F(MergedCommands, AreReleased)
{
  drag(1, {.hand = "left"});
  const auto later = std::make_shared<Drag>(desk, 2, DragTraits{.hand = "left"});

  history.execute(later);

  EXPECT_EQ(later.use_count(), 1);
}

TEST_F(MergedCommands, HaveTheSizeThatTheKeptOneTellsAfterwards)
{
  drag(1, {.hand = "left", .size = 10});
  drag(2, {.hand = "left", .size = 20});
  EXPECT_EQ(history.sizeInBytes(), 30U);

  drag(0, {.hand = "left", .size = 20}); // cancels out
  EXPECT_EQ(history.sizeInBytes(), 0U);
}

TEST_F(MergedCommands, HaveTheSumOfGivenSizesWhenNobodyElseKnows)
{
  history.execute(std::make_shared<Drag>(desk, 1, DragTraits{.hand = "left"}), 10);
  history.execute(std::make_shared<Drag>(desk, 2, DragTraits{.hand = "left"}), 20);

  EXPECT_EQ(history.sizeInBytes(), 30U);
}

TEST_F(MergedCommands, AreNotACommandThatIsExecutedTwice)
{
  const auto same = std::make_shared<Drag>(desk, 1, DragTraits{.hand = "left"});

  history.execute(same);
  history.execute(same);

  EXPECT_EQ(history.entries().size(), 2U);
}

/// Throws whatever it is asked.
class Sulking : public AppendCommand, public HistoryEntry {
public:
  using AppendCommand::AppendCommand;
  std::size_t sizeInBytes() const override { throw std::runtime_error("size"); }
  bool hasChangedNothing() const override { throw std::runtime_error("changed"); }
  bool mergeWith(CommandBase&) override { throw std::runtime_error("merge"); }
};

TEST_F(MergedCommands, AreKeptApartWhenTheLastOneThrows)
{
  Document document;
  history.setDropsCommandsWithoutChange(true);

  history.execute(std::make_shared<Sulking>(document, "A"));
  history.execute(std::make_shared<Sulking>(document, "B"));

  EXPECT_EQ(view(history), "* A B |");
  EXPECT_EQ(history.sizeInBytes(), 0U);
  history.undo();
  history.undo();
  EXPECT_EQ(document.text(), "");
}

}
}
