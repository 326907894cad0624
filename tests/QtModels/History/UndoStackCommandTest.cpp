// SPDX-License-Identifier: MIT
#include "QtModels/History/UndoStackCommand.h"

#include "QtModels/Support/TextCommand.h"

#include <QtGui/QUndoStack>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UndoStackCommandTest : public ::testing::TestWithParam<Failure> {
protected:
  UndoStackCommand* made(std::shared_ptr<CommandBase> command, QUndoCommand* parent = nullptr)
  {
    return new UndoStackCommand(
        std::move(command),
        [this](const QString& message) { messages.push_back(message.toStdString()); }, parent);
  }

  std::shared_ptr<TextCommand> typing(const std::string& text)
  {
    return std::make_shared<TextCommand>(document, text, "Type " + text);
  }

  std::string document;
  QUndoStack stack;
  std::vector<std::string> messages;
};

TEST_F(UndoStackCommandTest, RunsOnAStackOfQt)
{
  stack.push(made(typing("a")));
  EXPECT_EQ(document, "a");
  EXPECT_EQ(stack.undoText(), "Type a");

  stack.undo();
  EXPECT_EQ(document, "");
  stack.redo();
  EXPECT_EQ(document, "a");
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(UndoStackCommandTest, IsDescribedByWhatItHasDone)
{
  struct Described : TextCommand {
    using TextCommand::TextCommand;
    const std::string& getDescription() const override { return m_description; }
    void redo() override
    {
      TextCommand::redo();
      m_description = "Type: done";
    }
    std::string m_description;
  };

  stack.push(made(std::make_shared<Described>(document, "a", "")));

  EXPECT_EQ(stack.undoText(), "Type: done");
}

TEST_F(UndoStackCommandTest, TakesTheNextOneOver)
{
  stack.push(made(std::make_shared<TypingCommand>(document, "a", "Type")));
  stack.push(made(std::make_shared<TypingCommand>(document, "b", "Type")));

  EXPECT_EQ(stack.count(), 1);
  stack.undo();
  EXPECT_EQ(document, "");
}

TEST_F(UndoStackCommandTest, LeavesNoEntryWhenItHasChangedNothing)
{
  stack.push(made(std::make_shared<TypingCommand>(document, "", "Type")));

  EXPECT_EQ(stack.count(), 0);
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(UndoStackCommandTest, IsForgottenWhenItCannotBeRedone)
{
  struct Once : TextCommand {
    using TextCommand::TextCommand;
    bool isRedoCapable() override { return false; }
  };
  stack.push(made(std::make_shared<Once>(document, "a", "Type")));

  stack.undo();

  EXPECT_EQ(document, "");
  EXPECT_EQ(stack.count(), 0);
}

TEST_F(UndoStackCommandTest, RefusesNoCommand)
{
  EXPECT_THROW(UndoStackCommand(nullptr), std::invalid_argument);
}

INSTANTIATE_TEST_SUITE_P(Failures,
                         UndoStackCommandTest,
                         ::testing::Values(Failure::Error, Failure::OutOfMemory, Failure::Unknown));

TEST_P(UndoStackCommandTest, LeavesNoEntryWhenItFails)
{
  const auto command = typing("a");
  command->failNext(GetParam());

  stack.push(made(command));

  EXPECT_EQ(document, "");
  EXPECT_EQ(stack.count(), 0);
  EXPECT_THAT(messages, ElementsAre(::testing::StartsWith("An error occurred in \"Type a\": ")));
}

TEST_P(UndoStackCommandTest, IsNotTakenOverWhenItFails)
{
  stack.push(made(std::make_shared<TypingCommand>(document, "a", "Type")));
  const auto failing = std::make_shared<TypingCommand>(document, "b", "Type");
  failing->failNext(GetParam());

  stack.push(made(failing));

  EXPECT_EQ(document, "a");
  EXPECT_EQ(stack.count(), 1);
  stack.undo();
  EXPECT_EQ(document, "");
}

TEST_P(UndoStackCommandTest, IsForgottenWhenUndoFails)
{
  const auto command = typing("b");
  stack.push(made(typing("a")));
  stack.push(made(command));
  stack.setClean();
  command->failNext(GetParam());

  stack.undo();

  EXPECT_EQ(document, "ab");
  EXPECT_EQ(stack.count(), 1);
  EXPECT_FALSE(stack.isClean());
  EXPECT_THAT(messages, ElementsAre(::testing::StartsWith(
                            "An error occurred while \"Type b\" was undone: ")));
}

TEST_P(UndoStackCommandTest, IsForgottenWhenRedoFails)
{
  const auto command = typing("a");
  stack.push(made(command));
  stack.undo();
  command->failNext(GetParam());

  stack.redo();

  EXPECT_EQ(document, "");
  EXPECT_EQ(stack.count(), 0);
  EXPECT_THAT(messages, ElementsAre(::testing::StartsWith(
                            "An error occurred while \"Type a\" was redone: ")));
}

TEST_P(UndoStackCommandTest, DoesNotUndoWhatHasFailedAsAPartOfAnotherCommand)
{
  const auto failing = typing("b");
  failing->failNext(GetParam());
  auto* const whole = new QUndoCommand("Type both");
  made(typing("a"), whole);
  made(failing, whole);

  stack.push(whole);
  EXPECT_EQ(document, "a");
  stack.undo();
  EXPECT_EQ(document, "");
}

TEST_P(UndoStackCommandTest, NeedsNoHandlerOfFailures)
{
  const auto command = typing("a");
  command->failNext(GetParam());

  stack.push(new UndoStackCommand(command));

  EXPECT_EQ(stack.count(), 0);
}

TEST_P(UndoStackCommandTest, DropsWhatTheHandlerOfFailuresThrows)
{
  const auto command = typing("a");
  command->failNext(GetParam());

  stack.push(new UndoStackCommand(command, [](const QString&) { failWith(GetParam()); }));

  EXPECT_EQ(stack.count(), 0);
}

}
}
