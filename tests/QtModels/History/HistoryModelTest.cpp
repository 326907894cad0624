// SPDX-License-Identifier: MIT
#include "QtModels/History/HistoryModel.h"

#include "QtModels/History/History.h"
#include "QtModels/Support/TextCommand.h"

#include <QtGui/QPixmap>
#include <QtTest/QAbstractItemModelTester>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HistoryModelTest : public ::testing::Test {
protected:
  HistoryModelTest()
  {
    QPixmap pixmap(1, 1);
    model.setCleanIcon(pixmap);
    model.setHistory(&history);
    const auto note = [this](const std::string& what) {
      return [this, what](const QModelIndex&, int first, int last) {
        changes.push_back(what + ' ' + std::to_string(first) + ".." + std::to_string(last));
      };
    };
    QObject::connect(&model, &HistoryModel::rowsInserted, note("insert"));
    QObject::connect(&model, &HistoryModel::rowsRemoved, note("remove"));
    QObject::connect(&model, &HistoryModel::modelReset, [this] { changes.push_back("reset"); });
    QObject::connect(&model, &HistoryModel::dataChanged,
                     [this](const QModelIndex& first, const QModelIndex& last, const auto& roles) {
                       changes.push_back((roles.contains(Qt::DecorationRole) ? "icon " : "text ") +
                                         std::to_string(first.row()) + ".." +
                                         std::to_string(last.row()));
                     });
  }

  void type(const std::string& text)
  {
    history.push(std::make_shared<TextCommand>(document, text, "Type " + text));
  }

  std::vector<std::string> takeChanges() { return std::exchange(changes, {}); }

  std::vector<std::string> rows() const
  {
    std::vector<std::string> result;
    for (int row = 0; row < model.rowCount(); ++row) {
      const auto index = model.index(row);
      const bool isClean = !index.data(Qt::DecorationRole).isNull();
      result.push_back(index.data().toString().toStdString() + (isClean ? " *" : ""));
    }
    return result;
  }

  /// What the rows are to be.
  std::vector<std::string> rowsOfHistory() const
  {
    std::vector<std::string> result;
    for (int i = 0; i <= history.count(); ++i)
      result.push_back((i == 0 ? "<empty>" : history.text(i - 1).toStdString()) +
                       (i == history.cleanIndex() ? " *" : ""));
    return result;
  }

  std::string document;
  History history;
  HistoryModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  std::vector<std::string> changes;
};

TEST_F(HistoryModelTest, ShowsTheStateBeforeTheFirstEntryAndThoseAfterEach)
{
  type("a");
  type("b");

  EXPECT_THAT(rows(), ElementsAre("<empty> *", "Type a", "Type b"));
}

TEST_F(HistoryModelTest, InsertsARowForACommand)
{
  type("a");

  EXPECT_THAT(takeChanges(), ElementsAre("insert 1..1"));
}

TEST_F(HistoryModelTest, ChangesNothingWhenACommandIsUndone)
{
  type("a");
  takeChanges();

  history.undo();
  history.redo();

  EXPECT_THAT(takeChanges(), IsEmpty());
}

TEST_F(HistoryModelTest, ReplacesTheRowsOfUndoneCommands)
{
  for (const auto* const text : {"a", "b", "c"})
    type(text);
  history.setIndex(1);
  takeChanges();

  type("d");

  EXPECT_THAT(takeChanges(), ElementsAre("remove 2..3", "insert 2..2"));
  EXPECT_THAT(rows(), ElementsAre("<empty> *", "Type a", "Type d"));
}

TEST_F(HistoryModelTest, RemovesTheOldestRowsWhenTheLimitIsReached)
{
  history.setUndoLimit(2);
  type("a");
  type("b");
  takeChanges();

  type("c");

  EXPECT_THAT(takeChanges(), ElementsAre("remove 1..1", "insert 2..2", "icon 0..0"));
  EXPECT_THAT(rows(), ElementsAre("<empty>", "Type b", "Type c"));
}

TEST_F(HistoryModelTest, ChangesTheTextOfACommandThatTookAnotherOver)
{
  struct Counting : TypingCommand {
    using TypingCommand::TypingCommand;
    bool mergeWith(CommandBase& later) override
    {
      m_description = "Type twice";
      return TypingCommand::mergeWith(later);
    }
    const std::string& getDescription() const override { return m_description; }
    std::string m_description = "Type";
  };
  history.push(std::make_shared<Counting>(document, "a", ""));
  takeChanges();

  history.push(std::make_shared<Counting>(document, "b", ""));

  EXPECT_THAT(takeChanges(), ElementsAre("text 1..1"));
  EXPECT_THAT(rows(), ElementsAre("<empty> *", "Type twice"));
}

TEST_F(HistoryModelTest, MovesTheIconToTheSavedState)
{
  type("a");
  takeChanges();

  history.setClean();
  EXPECT_THAT(takeChanges(), ElementsAre("icon 0..0", "icon 1..1"));
  EXPECT_THAT(rows(), ElementsAre("<empty>", "Type a *"));

  history.resetClean();
  EXPECT_THAT(takeChanges(), ElementsAre("icon 1..1"));
}

TEST_F(HistoryModelTest, LetsTheApplicationNameTheFirstRow)
{
  model.setEmptyLabel("as opened");

  EXPECT_THAT(takeChanges(), ElementsAre("text 0..0"));
  EXPECT_THAT(rows(), ElementsAre("as opened *"));
}

TEST_F(HistoryModelTest, ShowsAnotherHistory)
{
  type("a");
  takeChanges();
  History other;

  model.setHistory(&other);
  EXPECT_THAT(takeChanges(), ElementsAre("reset"));
  type("b");
  EXPECT_THAT(rows(), ElementsAre("<empty> *")) << "the first one is not followed any more";
}

TEST_F(HistoryModelTest, IsEmptyWhenTheHistoryHasGone)
{
  {
    History other;
    model.setHistory(&other);
  }

  EXPECT_EQ(model.history(), nullptr);
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(HistoryModelTest, FollowsWhatAViewDoesInTheMeantime)
{
  type("a");
  type("b");
  history.undo();
  const auto connection =
      QObject::connect(&model, &HistoryModel::rowsRemoved, [this] { history.undo(); });

  type("c");

  QObject::disconnect(connection);
  EXPECT_EQ(rows(), rowsOfHistory());
  EXPECT_EQ(document, "a");
}

TEST_F(HistoryModelTest, FollowsAnyChange)
{
  std::mt19937 random(20);
  const auto anyOf = [&](int n) { return std::uniform_int_distribution(0, n - 1)(random); };

  for (int step = 0; step < 2000 && !HasFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    switch (anyOf(8)) {
    case 0:
      history.setIndex(anyOf(history.count() + 1));
      break;
    case 1:
      history.setClean();
      break;
    case 2:
      history.setUndoLimit(3 + anyOf(10));
      break;
    case 3:
      history.commands().releaseOldest(static_cast<std::size_t>(anyOf(4)));
      break;
    case 4:
      anyOf(10) == 0 ? history.clear() : history.commands().releaseUndone();
      break;
    default:
      type(std::to_string(step));
    }
    EXPECT_EQ(rows(), rowsOfHistory());
  }
}

}
}
