// SPDX-License-Identifier: MIT
#include "QtModels/History/HistoryGroup.h"

#include "QtModels/History/History.h"
#include "QtModels/Support/Signals.h"
#include "QtModels/Support/TextCommand.h"

#include <QtGui/QAction>
#include <QtGui/QUndoGroup>
#include <QtGui/QUndoStack>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;

class HistoryGroupTest : public ::testing::Test {
protected:
  HistoryGroupTest()
  {
    group.addHistory(&plan);
    group.addHistory(&list);
    plan.push(std::make_shared<TextCommand>(document, "a", "Type a"));
  }

  std::string document;
  History plan;
  History list;
  HistoryGroup group;
};

TEST_F(HistoryGroupTest, HasNothingToUndoWithoutAnActiveHistory)
{
  group.undo();
  group.redo();

  EXPECT_EQ(document, "a");
  EXPECT_EQ(group.activeHistory(), nullptr);
  EXPECT_FALSE(group.canUndo());
  EXPECT_TRUE(group.isClean());
  EXPECT_FALSE(plan.isActive());
}

TEST_F(HistoryGroupTest, UndoesInTheActiveHistory)
{
  plan.setActive();

  group.undo();
  EXPECT_EQ(document, "");
  group.redo();
  EXPECT_EQ(document, "a");
}

TEST_F(HistoryGroupTest, HasActionsThatFollowTheActiveHistory)
{
  QObject window;
  auto* const undo = group.createUndoAction(&window);
  auto* const redo = group.createRedoAction(&window);
  EXPECT_FALSE(undo->isEnabled());

  group.setActiveHistory(&plan);
  EXPECT_EQ(undo->text(), "Undo Type a");
  undo->trigger();
  EXPECT_EQ(document, "");
  EXPECT_EQ(redo->text(), "Redo Type a");

  group.setActiveHistory(&list);
  EXPECT_EQ(redo->text(), "Redo");
  EXPECT_FALSE(redo->isEnabled());
}

TEST_F(HistoryGroupTest, TellsAllValuesWhenAnotherHistoryBecomesActive)
{
  Signals sent(group);

  plan.setActive();
  EXPECT_THAT(sent.take(), ElementsAre("canUndo true", "undoText Type a", "canRedo false",
                                       "redoText ", "clean false", "index 1"));

  plan.setActive(false);
  EXPECT_THAT(sent.take(), ElementsAre("canUndo false", "undoText ", "canRedo false", "redoText ",
                                       "clean true", "index 0"));
}

TEST_F(HistoryGroupTest, SendsOnlyTheSignalsOfTheActiveHistory)
{
  list.setActive();
  Signals sent(group);

  plan.undo();

  EXPECT_THAT(sent.take(), ElementsAre());
}

TEST_F(HistoryGroupTest, ReportsTheFailuresOfTheActiveHistory)
{
  plan.setActive();
  QString message;
  QObject::connect(&group, &HistoryGroup::failed, [&](const QString& sent) { message = sent; });

  plan.push(nullptr);

  EXPECT_TRUE(message.contains("the command is null")) << message.toStdString();
}

TEST_F(HistoryGroupTest, ForgetsAHistoryThatIsDestroyed)
{
  auto third = std::make_unique<History>();
  group.addHistory(third.get());
  third->setActive();

  third.reset();

  EXPECT_EQ(group.activeHistory(), nullptr);
  EXPECT_THAT(group.histories(), ElementsAre(&plan, &list));
}

TEST_F(HistoryGroupTest, TakesAHistoryOverFromAnotherGroup)
{
  plan.setActive();
  HistoryGroup other;

  other.addHistory(&plan);

  EXPECT_EQ(group.activeHistory(), nullptr);
  EXPECT_THAT(group.histories(), ElementsAre(&list));
  EXPECT_THAT(other.histories(), ElementsAre(&plan));
}

TEST_F(HistoryGroupTest, IgnoresAHistoryThatIsNotInIt)
{
  History other;

  group.setActiveHistory(&other);
  group.removeHistory(&other);

  EXPECT_EQ(group.activeHistory(), nullptr);
}

TEST_F(HistoryGroupTest, LeavesTheHistoriesWhenItIsDestroyed)
{
  auto other = std::make_unique<HistoryGroup>();
  other->addHistory(&plan);
  plan.setActive();

  other.reset();

  EXPECT_TRUE(plan.isActive()) << "a history without a group is active";
  plan.undo();
  EXPECT_EQ(document, "");
}

TEST_F(HistoryGroupTest, SendsTheSameSignalsAsQt)
{
  QUndoStack stack;
  QUndoGroup qtGroup;
  qtGroup.addStack(&stack);
  stack.push(new QUndoCommand("Type a"));
  Signals qtSent(qtGroup);
  Signals sent(group);

  stack.setActive();
  plan.setActive();

  EXPECT_EQ(sent.take(), qtSent.take());
}

}
}
