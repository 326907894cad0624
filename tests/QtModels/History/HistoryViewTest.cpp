// SPDX-License-Identifier: MIT
#include "QtModels/History/HistoryView.h"

#include "QtModels/History/History.h"
#include "QtModels/History/HistoryGroup.h"
#include "QtModels/Support/TextCommand.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Tarvik {
namespace {

class HistoryViewTest : public ::testing::Test {
protected:
  HistoryViewTest()
  {
    for (const auto* const text : {"a", "b", "c"}) {
      commands.push_back(std::make_shared<TextCommand>(document, text, text));
      history.push(commands.back());
    }
    view.resize(200, 200);
    view.show();
  }

  /// The current row, which must be the only one that is selected.
  int currentRow() const
  {
    const auto selected = view.selectionModel()->selectedIndexes();
    EXPECT_EQ(selected.size(), 1);
    EXPECT_EQ(selected.value(0), view.currentIndex());
    return view.currentIndex().row();
  }

  void click(int row)
  {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                      view.visualRect(view.model()->index(row, 0)).center());
  }

  std::string document;
  std::vector<std::shared_ptr<TextCommand>> commands;
  History history;
  HistoryView view{&history};
};

TEST_F(HistoryViewTest, ShowsWhereTheDocumentIs)
{
  EXPECT_EQ(currentRow(), 3);

  history.undo();
  EXPECT_EQ(currentRow(), 2);
  history.setIndex(0);
  EXPECT_EQ(currentRow(), 0);
}

TEST_F(HistoryViewTest, GoesToTheStateThatIsClicked)
{
  click(1);

  EXPECT_EQ(document, "a");
  EXPECT_EQ(history.index(), 1);
  EXPECT_EQ(currentRow(), 1);
}

TEST_F(HistoryViewTest, GoesToTheStateThatIsChosenWithTheKeyboard)
{
  QTest::keyClick(&view, Qt::Key_Up);
  EXPECT_EQ(document, "ab");

  QTest::keyClick(&view, Qt::Key_Home);
  EXPECT_EQ(document, "");
}

TEST_F(HistoryViewTest, GoesBackToTheRealStateWhenACommandFails)
{
  commands[1]->failNext(Failure::Error);

  click(0);
  QCoreApplication::processEvents();

  EXPECT_EQ(document, "abc");
  EXPECT_EQ(currentRow(), 3);
}

TEST_F(HistoryViewTest, DoesNotUndoWhenTheCurrentRowIsRemoved)
{
  history.setIndex(3);

  history.commands().releaseOldest(1);
  EXPECT_EQ(document, "abc");
  EXPECT_EQ(currentRow(), 2);
  history.clear();

  EXPECT_EQ(document, "abc");
  EXPECT_EQ(currentRow(), 0);
}

TEST_F(HistoryViewTest, FollowsTheActiveHistoryOfAGroup)
{
  auto group = std::make_unique<HistoryGroup>();
  History other;
  group->addHistory(&history);
  group->addHistory(&other);
  view.setGroup(group.get());
  EXPECT_EQ(view.history(), nullptr);

  history.setActive();
  EXPECT_EQ(view.history(), &history);
  EXPECT_EQ(currentRow(), 3);
  other.setActive();
  EXPECT_EQ(view.history(), &other);
  EXPECT_EQ(currentRow(), 0);

  group.reset();
  EXPECT_EQ(view.history(), nullptr);
  EXPECT_EQ(view.group(), nullptr);
}

TEST_F(HistoryViewTest, ShowsAHistoryInsteadOfAGroup)
{
  HistoryGroup group;
  view.setGroup(&group);

  view.setHistory(&history);

  EXPECT_EQ(view.group(), nullptr);
  EXPECT_EQ(currentRow(), 3);
}

TEST_F(HistoryViewTest, HasALabelAndAnIconAsQtDoes)
{
  view.setProperty("emptyLabel", "as opened");
  QPixmap pixmap(1, 1);
  view.setCleanIcon(pixmap);

  EXPECT_EQ(view.emptyLabel(), "as opened");
  EXPECT_EQ(view.model()->index(0, 0).data().toString(), "as opened");
  EXPECT_FALSE(view.cleanIcon().isNull());
}

}
}
