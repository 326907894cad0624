// SPDX-License-Identifier: MIT
#include "QtModels/History/History.h"

#include "CommandPattern/CommandTransaction.h"
#include "QtModels/Support/Signals.h"
#include "QtModels/Support/TextCommand.h"

#include <QtGui/QAction>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HistoryTest : public ::testing::Test {
protected:
  HistoryTest()
  {
    QObject::connect(&history, &History::failed,
                     [this](const QString& message) { messages.push_back(message.toStdString()); });
  }

  std::shared_ptr<TextCommand> typing(const std::string& text)
  {
    return std::make_shared<TextCommand>(document, text, "Type " + text);
  }

  std::string document;
  History history;
  std::vector<std::string> messages;
};

TEST_F(HistoryTest, ExecutesWhatIsPushed)
{
  Signals sent(history);

  EXPECT_TRUE(history.push(typing("a")));

  EXPECT_EQ(document, "a");
  EXPECT_EQ(history.count(), 1);
  EXPECT_EQ(history.text(0), "Type a");
  EXPECT_THAT(sent.take(),
              ElementsAre("index 1", "canUndo true", "undoText Type a", "clean false"));
}

TEST_F(HistoryTest, UndoesAndRedoes)
{
  history.push(typing("a"));
  Signals sent(history);

  history.undo();
  EXPECT_EQ(document, "");
  EXPECT_THAT(sent.take(), ElementsAre("index 0", "canUndo false", "undoText ", "canRedo true",
                                       "redoText Type a", "clean true"));

  history.redo();
  EXPECT_EQ(document, "a");
  EXPECT_TRUE(history.canUndo());
}

TEST_F(HistoryTest, GoesToTheNearestEndWhenAnIndexIsOutOfRange)
{
  history.push(typing("a"));
  history.push(typing("b"));

  history.setIndex(-3);
  EXPECT_EQ(document, "");
  history.setIndex(99);
  EXPECT_EQ(document, "ab");
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(HistoryTest, KnowsWhichStateIsSaved)
{
  history.push(typing("a"));

  history.setClean();
  EXPECT_TRUE(history.isClean());
  EXPECT_EQ(history.cleanIndex(), 1);

  history.resetClean();
  EXPECT_FALSE(history.isClean());
  EXPECT_EQ(history.cleanIndex(), -1);
}

TEST_F(HistoryTest, ForgetsAllStepsForANewDocument)
{
  history.push(typing("a"));

  history.clear();

  EXPECT_EQ(history.count(), 0);
  EXPECT_TRUE(history.isClean());
  EXPECT_EQ(document, "a");
}

TEST_F(HistoryTest, FollowsAHistoryThatTheApplicationOwns)
{
  CommandHistory commands;
  const History following(commands);
  Signals sent(following);

  commands.execute(typing("a"));

  EXPECT_EQ(&following.commands(), &commands);
  EXPECT_THAT(sent.take(),
              ElementsAre("index 1", "canUndo true", "undoText Type a", "clean false"));
  commands.markClean();
  EXPECT_THAT(sent.take(), ElementsAre("clean true"));
}

TEST_F(HistoryTest, MayBeDestroyedBeforeTheHistoryThatItFollows)
{
  CommandHistory commands;
  std::make_unique<History>(commands).reset();

  commands.execute(typing("a"));

  EXPECT_EQ(document, "a");
}

TEST_F(HistoryTest, MakesAMacroOneStep)
{
  Signals sent(history);

  history.beginMacro("Type Both");
  history.push(typing("a"));
  history.push(typing("b"));
  EXPECT_FALSE(history.canUndo());
  history.endMacro();

  EXPECT_EQ(history.count(), 1);
  EXPECT_THAT(sent.take(),
              ElementsAre("index 1", "canUndo true", "undoText Type Both", "clean false"));
  history.undo();
  EXPECT_EQ(document, "");
}

TEST_F(HistoryTest, CannotUndoWhileAMacroIsOpen)
{
  history.push(typing("a"));
  Signals sent(history);

  history.beginMacro("Type More");
  EXPECT_THAT(sent.take(), ElementsAre("canUndo false", "undoText "));
  history.endMacro();
  EXPECT_THAT(sent.take(), ElementsAre("index 1", "canUndo true", "undoText Type a"));
  EXPECT_EQ(history.count(), 1) << "a macro without commands leaves no entry";
}

TEST_F(HistoryTest, TakesAMacroBack)
{
  history.push(typing("a"));
  history.beginMacro("Type More");
  history.push(typing("b"));

  history.rollBackMacro();

  EXPECT_EQ(document, "a");
  EXPECT_EQ(history.count(), 1);
  EXPECT_TRUE(history.canUndo());
}

TEST_F(HistoryTest, EnablesUndoAgainAfterATransactionAroundAMacro)
{
  history.push(typing("a"));
  QAction* const undo = history.createUndoAction(&history);
  {
    CommandTransaction around(history.commands());
    history.beginMacro("Type More");
    history.push(typing("b"));
    history.endMacro();
    EXPECT_FALSE(undo->isEnabled());
  }

  EXPECT_EQ(document, "a");
  EXPECT_TRUE(undo->isEnabled());
}

TEST_F(HistoryTest, TakesAnOpenMacroBackWhenItIsDestroyed)
{
  CommandHistory commands;
  {
    History following(commands);
    following.beginMacro("Type");
    following.beginMacro("Type More");
    following.push(typing("a"));
  }

  EXPECT_EQ(document, "");
  EXPECT_TRUE(commands.entries().empty());
}

TEST_F(HistoryTest, IgnoresTheEndOfAMacroThatHasNotBegun)
{
  history.endMacro();
  history.rollBackMacro();

  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(HistoryTest, LimitsTheNumberOfSteps)
{
  for (const auto* const text : {"a", "b", "c"})
    history.push(typing(text));

  history.setUndoLimit(2);
  EXPECT_EQ(history.undoLimit(), 2);
  EXPECT_EQ(history.count(), 2);
  EXPECT_EQ(history.text(0), "Type b");

  history.setUndoLimit(0);
  EXPECT_EQ(history.undoLimit(), 0);
  EXPECT_EQ(history.commands().limit(), CommandHistory::unlimited);
}

TEST_F(HistoryTest, TellsOfEachCommandWhenTheLimitIsReached)
{
  history.setUndoLimit(1);
  history.push(typing("a"));
  Signals sent(history);

  history.push(typing("b"));

  EXPECT_THAT(sent.take(), ElementsAre("index 1", "undoText Type b"));
}

TEST_F(HistoryTest, HasABudgetOfMemory)
{
  history.commands().setSizeFunction([](const CommandBase&) { return std::size_t(100); });
  for (const auto* const text : {"a", "b", "c"})
    history.push(typing(text));

  history.setBudget(250);
  EXPECT_EQ(history.budget(), 250);
  EXPECT_EQ(history.count(), 2);

  history.setBudget(0);
  EXPECT_EQ(history.budget(), 0);
  EXPECT_EQ(history.commands().budget(), CommandHistory::unlimited);
}

TEST_F(HistoryTest, TellsOfACommandThatTheLastOneHasTakenOver)
{
  history.push(std::make_shared<TypingCommand>(document, "a", "Type"));
  Signals sent(history);

  history.push(std::make_shared<TypingCommand>(document, "b", "Type"));

  EXPECT_EQ(history.count(), 1);
  EXPECT_THAT(sent.take(), ElementsAre("index 1"));
}

TEST_F(HistoryTest, SaysWhenACommandHasChangedNothing)
{
  history.commands().setDropsCommandsWithoutChange(true);

  EXPECT_FALSE(history.push(std::make_shared<TypingCommand>(document, "", "Type")));

  EXPECT_EQ(history.count(), 0);
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(HistoryTest, MakesActionsThatSayWhatTheyWouldDo)
{
  QObject window;
  auto* const undo = history.createUndoAction(&window);
  auto* const redo = history.createRedoAction(&window, "Do again");
  EXPECT_EQ(undo->text(), "Undo");
  EXPECT_EQ(redo->text(), "Do again");
  EXPECT_FALSE(undo->isEnabled());

  history.push(std::make_shared<TextCommand>(document, "a", "Create Group: R&D"));
  EXPECT_EQ(undo->text(), "Undo Create Group: R&&D") << "the menu shows one &";
  EXPECT_TRUE(undo->isEnabled());

  undo->trigger();
  EXPECT_EQ(document, "");
  EXPECT_FALSE(undo->isEnabled());
  EXPECT_EQ(redo->text(), "Do again Create Group: R&&D");

  redo->trigger();
  EXPECT_EQ(document, "a");
}

TEST_F(HistoryTest, RefusesNoCommandWithAMessage)
{
  EXPECT_FALSE(history.push(nullptr));

  EXPECT_THAT(messages, ElementsAre(::testing::HasSubstr("the command is null")));
}

TEST_F(HistoryTest, ReportsWhenACommandUsesTheHistoryThatRunsIt)
{
  struct Nested : TextCommand {
    using TextCommand::TextCommand;
    void execute() override { inner->undo(); }
    History* inner = nullptr;
  };
  const auto command = std::make_shared<Nested>(document, "a", "Nested");
  command->inner = &history;

  history.push(command);

  EXPECT_THAT(messages, ElementsAre(::testing::HasSubstr("running")));
}

struct FailureCase {
  Failure failure;
  const char* cause;
};

class FailureTest : public HistoryTest, public ::testing::WithParamInterface<FailureCase> {};

INSTANTIATE_TEST_SUITE_P(Failures,
                         FailureTest,
                         ::testing::Values(FailureCase{Failure::Error, "the disk is full"},
                                           FailureCase{Failure::OutOfMemory,
                                                       "there is not enough memory"},
                                           FailureCase{Failure::Unknown, "the cause is unknown"}));

TEST_P(FailureTest, IsReportedWhenACommandIsPushed)
{
  const auto command = typing("a");
  command->failNext(GetParam().failure);

  EXPECT_FALSE(history.push(command));

  EXPECT_THAT(messages,
              ElementsAre(std::string("An error occurred in \"Type a\": ") + GetParam().cause));
  EXPECT_EQ(history.count(), 0);
  EXPECT_EQ(document, "");
}

TEST_P(FailureTest, IsReportedWhenACommandIsUndoneAndRedone)
{
  const auto command = typing("a");
  history.push(command);

  command->failNext(GetParam().failure);
  history.undo();
  EXPECT_EQ(document, "a");
  EXPECT_EQ(history.index(), 1);

  history.undo();
  command->failNext(GetParam().failure);
  history.redo();
  EXPECT_EQ(document, "");
  EXPECT_EQ(history.index(), 0);

  const std::string cause = GetParam().cause;
  EXPECT_THAT(messages, ElementsAre("An error occurred while \"Type a\" was undone: " + cause,
                                    "An error occurred while \"Type a\" was redone: " + cause));
}

TEST_P(FailureTest, IsReportedWhenSeveralStepsAreUndone)
{
  const auto first = typing("a");
  history.push(first);
  history.push(typing("b"));
  first->failNext(GetParam().failure);

  history.setIndex(0);

  EXPECT_EQ(document, "ab");
  EXPECT_EQ(history.index(), 2);
  EXPECT_THAT(messages,
              ElementsAre(std::string("An error occurred while several steps were undone or "
                                      "redone: ") +
                          GetParam().cause));
}

TEST_P(FailureTest, IsReportedWhenAMacroIsTakenBack)
{
  const auto command = typing("a");
  history.beginMacro("Macro");
  history.push(command);
  command->failNext(GetParam().failure);

  history.rollBackMacro();

  EXPECT_EQ(document, "a");
  EXPECT_EQ(history.count(), 1) << "what could not be undone is an entry";
  EXPECT_THAT(messages, ElementsAre(::testing::HasSubstr(GetParam().cause)));
}

TEST_P(FailureTest, OfASlotIsReportedAndDoesNotHinderTheOthers)
{
  int isTold = 0;
  QObject::connect(&history, &History::changed, [] { failWith(GetParam().failure); });
  const auto others = history.commands().subscribe([&](const CommandHistory&) { ++isTold; });

  history.push(typing("a"));

  EXPECT_EQ(document, "a");
  EXPECT_EQ(isTold, 1);
  EXPECT_THAT(messages, ElementsAre(::testing::HasSubstr(GetParam().cause)));
}

TEST_F(HistoryTest, LetsASlotUndoAtOnce)
{
  QAction* const undo = history.createUndoAction(&history);
  QObject::connect(&history, &History::indexChanged, [this](int index) {
    if (index == 1)
      history.undo();
  });

  history.push(typing("a"));

  EXPECT_EQ(document, "");
  EXPECT_FALSE(undo->isEnabled());
  EXPECT_EQ(undo->text(), "Undo");
}

/// A document that is shared by the commands that change it, and is destroyed with its window.
struct Document {
  std::string text;
};

class DocumentCommand : public TextCommand {
public:
  explicit DocumentCommand(const std::shared_ptr<Document>& document)
      : TextCommand(document->text, "a", "Type"), m_document(document)
  {}

private:
  std::shared_ptr<Document> m_document;
};

TEST(OwningADocument, WorksWithTheHistoryBesideIt)
{
  struct Window : QObject {
    std::shared_ptr<Document> document = std::make_shared<Document>();
    History history; // after the document, and not in it
  };
  auto window = std::make_unique<Window>();
  const std::weak_ptr<Document> watched = window->document;
  window->history.push(std::make_shared<DocumentCommand>(window->document));

  window.reset();

  EXPECT_TRUE(watched.expired());
}

}
}
