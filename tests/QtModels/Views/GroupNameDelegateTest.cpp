// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupNameDelegate.h"

#include "QtModels/Support/ShownView.h"

#include <gtest/gtest.h>

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
