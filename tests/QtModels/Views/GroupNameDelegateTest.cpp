// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupNameDelegate.h"

#include "QtModels/Support/ShownView.h"

#include <QtCore/QStringListModel>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

#include <cstdlib>

namespace Tarvik {
namespace {

/// Starts to rename the group A.
struct Renaming : ShownView {
  Renaming() : ShownView("A[] B[] ")
  {
    view.setCurrentIndex(row('A'));
    QTest::keyClick(&view, Qt::Key_F2);
    EXPECT_NE(nameEdit(), nullptr);
  }

  void type(const QString& text) const
  {
    nameEdit()->selectAll();
    QTest::keyClicks(nameEdit(), text);
  }
};

TEST(GroupNameDelegateTest, RenamesTheGroupInOneStep)
{
  Renaming renaming;
  renaming.type("N");
  EXPECT_TRUE(renaming.nameEdit()->fault().isEmpty());
  QTest::keyClick(renaming.nameEdit(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(renaming.document.text(), "N[] B[] ");
  EXPECT_EQ(renaming.document.history.entries().size(), 1U);
  EXPECT_EQ(renaming.nameEdit(), nullptr);
}

TEST(GroupNameDelegateTest, SaysWhyANameIsRefusedWhileItIsTyped)
{
  const Renaming renaming;
  renaming.type("B");
  EXPECT_EQ(renaming.nameEdit()->accessibleDescription(), "Another group has this name.");
  renaming.type("Bb");
  EXPECT_EQ(renaming.nameEdit()->accessibleDescription(), "");
  QTest::keyClick(renaming.nameEdit(), Qt::Key_Backspace);
  QTest::keyClick(renaming.nameEdit(), Qt::Key_Backspace);
  EXPECT_EQ(renaming.nameEdit()->accessibleDescription(), "A group needs a name.");
}

/// The hint that is on the screen.
QRect hint()
{
  for (const auto* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->inherits("QTipLabel"))
      return window->geometry();
  }
  return {};
}

TEST(GroupNameDelegateTest, SaysItWhereTheNameBeginsInBothDirections)
{
  constexpr int aLittle = 20;
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    Renaming renaming;
    renaming.view.setLayoutDirection(direction);
    renaming.view.resize(700, 300);
    renaming.view.move(0, 0);
    QCoreApplication::processEvents();
    renaming.type("B");

    const auto& edit = *renaming.nameEdit();
    const auto left = edit.mapToGlobal(edit.rect().topLeft()).x();
    const auto distance = direction == Qt::LeftToRight ? hint().left() - left
                                                       : hint().right() - (left + edit.width());
    EXPECT_LE(std::abs(distance), aLittle) << direction;
    EXPECT_GT(hint().top(), edit.mapToGlobal(edit.rect().topLeft()).y());
  }
}

TEST(GroupNameDelegateTest, StaysOpenWithANameThatIsRefused)
{
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab}) {
    Renaming renaming;
    renaming.type("B");
    QTest::keyClick(renaming.nameEdit(), key);
    QCoreApplication::processEvents();
    ASSERT_NE(renaming.nameEdit(), nullptr) << key;
    EXPECT_EQ(renaming.nameEdit()->text(), "B");
    EXPECT_TRUE(renaming.document.history.entries().empty());

    renaming.type("N");
    QTest::keyClick(renaming.nameEdit(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(renaming.document.text(), "N[] B[] ");
  }
}

TEST(GroupNameDelegateTest, ShowsNamesInTheirOwnOrderInBothDirections)
{
  struct Delegate : GroupNameDelegate {
    using GroupNameDelegate::initStyleOption;
  };
  const auto shownText = [](const QString& name, Qt::LayoutDirection direction) {
    QStringListModel model({name});
    QStyleOptionViewItem option;
    option.direction = direction;
    Delegate().initStyleOption(&option, model.index(0));
    return option.text;
  };

  EXPECT_EQ(shownText("Washington, D.C.", Qt::LeftToRight), "Washington, D.C.");
  EXPECT_EQ(shownText("Washington, D.C.", Qt::RightToLeft), "\u2068Washington, D.C.\u2069");
  EXPECT_EQ(shownText("-1", Qt::RightToLeft), "\u2068-1\u2069");
  EXPECT_EQ(shownText("New York", Qt::RightToLeft), "New York") << "it is in order already";
  EXPECT_EQ(shownText("", Qt::RightToLeft), "");
}

TEST(GroupNameDelegateTest, LeavesTheOldNameWithEscape)
{
  Renaming renaming;
  renaming.type("N");
  QTest::keyClick(renaming.nameEdit(), Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_EQ(renaming.nameEdit(), nullptr);
  EXPECT_EQ(renaming.document.text(), "A[] B[] ");
}

TEST(GroupNameDelegateTest, LeavesTheOldNameWhenTheUserGoesElsewhereWithANameThatIsRefused)
{
  Renaming renaming;
  renaming.type("B");
  renaming.view.setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(renaming.nameEdit(), nullptr);
  EXPECT_EQ(renaming.document.text(), "A[] B[] ");
}

TEST(GroupNameDelegateTest, KeepsWhatIsTypedWhenTheGroupChangesMeanwhile)
{
  Renaming renaming;
  renaming.type("N");
  renaming.view.itemDelegateForColumn(0)->setEditorData(renaming.nameEdit(), renaming.row('A'));
  EXPECT_EQ(renaming.nameEdit()->text(), "N");
}

TEST(GroupNameDelegateTest, KeepsTheKeyDeleteForTheText)
{
  Renaming renaming;
  QTest::keyClick(renaming.nameEdit(), Qt::Key_Delete);
  EXPECT_EQ(renaming.nameEdit()->text(), "");
  EXPECT_EQ(renaming.document.text(), "A[] B[] ");
}

}
}
