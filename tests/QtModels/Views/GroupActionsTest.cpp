// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupActions.h"

#include "QtModels/Support/ShoutingTranslator.h"
#include "QtModels/Support/ShownView.h"
#include "QtModels/Views/GroupChooser.h"

#include <QtCore/QSortFilterProxyModel>
#include <QtGui/QAction>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <gtest/gtest.h>

#include <string>

namespace Tarvik {
namespace {

struct ViewWithActions : ShownView {
  using ShownView::ShownView;

  QAction* action(GroupActions::Action which) const { return actions.action(which); }

  void trigger(GroupActions::Action which, const std::string& selection)
  {
    select(selection);
    QCoreApplication::processEvents();
    EXPECT_TRUE(action(which)->isEnabled());
    action(which)->trigger();
    QCoreApplication::processEvents();
  }

  /// The letters of the actions that are enabled: New, To group, Remove, rEname, Delete, Sort, Up,
  /// doWn.
  std::string enabledFor(const std::string& selection)
  {
    select(selection);
    QCoreApplication::processEvents();
    const std::string letters = "NTREDSUW";
    std::string result;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      if (action(static_cast<GroupActions::Action>(i))->isEnabled())
        result += letters[i];
    }
    return result;
  }

  GroupChooser* chooser() const { return view.findChild<GroupChooser*>(); }

  GroupActions& actions = *new GroupActions(&view);
};

TEST(GroupActionsTest, AreEnabledAccordingToTheSelection)
{
  ViewWithActions shown("A[ab] B[c] de");
  EXPECT_EQ(shown.enabledFor(""), "NS");
  EXPECT_EQ(shown.enabledFor("A"), "NEDSW");
  EXPECT_EQ(shown.enabledFor("B"), "NEDSU");
  EXPECT_EQ(shown.enabledFor("AB"), "NDS");
  EXPECT_EQ(shown.enabledFor("a"), "NTRSW");
  EXPECT_EQ(shown.enabledFor("b"), "NTRSU");
  EXPECT_EQ(shown.enabledFor("ac"), "NTRS");
  EXPECT_EQ(shown.enabledFor("d"), "NTSW");
  EXPECT_EQ(shown.enabledFor("e"), "NTSU");
  EXPECT_EQ(shown.enabledFor("Ad"), "NDS");
  EXPECT_EQ(shown.enabledFor("ad"), "NTRS");
}

TEST(GroupActionsTest, AreDisabledWhereThereIsNothingToEdit)
{
  ViewWithActions withoutGroups("a");
  EXPECT_EQ(withoutGroups.enabledFor("a"), "N");

  ViewWithActions withoutEditor("A[] ");
  delete &withoutEditor.document.editor;
  EXPECT_EQ(withoutEditor.enabledFor("A"), "");

  ViewWithActions withoutModel("A[] ");
  withoutModel.view.setModel(nullptr);
  QCoreApplication::processEvents();
  for (auto* action : withoutModel.actions.actions())
    EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
}

TEST(GroupActionsTest, FollowChangesOfTheDocument)
{
  ViewWithActions shown("a");
  EXPECT_EQ(shown.enabledFor(""), "N");
  shown.document.editor.createGroup({});
  QCoreApplication::processEvents();
  EXPECT_TRUE(shown.action(GroupActions::SortGroups)->isEnabled());
}

TEST(GroupActionsTest, MakeAGroupOfTheSelectionWhoseNameCanBeTyped)
{
  ViewWithActions shown("A[ab] c");
  shown.trigger(GroupActions::NewGroup, "cb");
  ASSERT_NE(shown.nameEdit(), nullptr);
  EXPECT_EQ(shown.nameEdit()->text(), "Group");
  QTest::keyClicks(shown.nameEdit(), "N");
  QTest::keyClick(shown.nameEdit(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(shown.document.text(), "A[a] N[bc] ");
}

TEST(GroupActionsTest, TakeMembersOutOfTheirGroups)
{
  ViewWithActions shown("A[ab] B[c] ");
  shown.trigger(GroupActions::RemoveFromGroup, "ac");
  EXPECT_EQ(shown.document.text(), "A[b] B[] ac");
}

TEST(GroupActionsTest, RenameTheSelectedGroup)
{
  ViewWithActions shown("A[] B[] ");
  shown.trigger(GroupActions::RenameGroup, "B");
  ASSERT_NE(shown.nameEdit(), nullptr);
  EXPECT_EQ(shown.nameEdit()->text(), "B");
}

TEST(GroupActionsTest, DeleteGroups)
{
  ViewWithActions shown("A[a] B[b] C[] ");
  shown.trigger(GroupActions::DeleteGroups, "AC");
  EXPECT_EQ(shown.document.text(), "B[b] a");
}

TEST(GroupActionsTest, SortGroups)
{
  ViewWithActions shown("B[] A[] ");
  shown.trigger(GroupActions::SortGroups, "");
  EXPECT_EQ(shown.document.text(), "A[] B[] ");
}

TEST(GroupActionsTest, MoveRowsUpAndDown)
{
  ViewWithActions shown("A[abc] B[] C[] def");
  shown.trigger(GroupActions::MoveUp, "C");
  EXPECT_EQ(shown.document.text(), "A[abc] C[] B[] def");
  shown.view.expandAll();
  shown.trigger(GroupActions::MoveDown, "ab");
  EXPECT_EQ(shown.document.text(), "A[cab] C[] B[] def");
  shown.trigger(GroupActions::MoveUp, "f");
  EXPECT_EQ(shown.document.text(), "A[cab] C[] B[] dfe");
  shown.trigger(GroupActions::MoveDown, "d");
  EXPECT_EQ(shown.document.text(), "A[cab] C[] B[] fde");
  EXPECT_EQ(shown.document.history.entries().size(), 4U);
}

TEST(GroupActionsTest, MoveRowsPastTheNextOneThatAFilterShows)
{
  ViewWithActions shown("A[] B[] C[] D[] ");
  QSortFilterProxyModel filter;
  filter.setSourceModel(&shown.document.model);
  filter.setFilterRegularExpression("A|D");
  shown.view.setModel(&filter);
  shown.trigger(GroupActions::MoveUp, "D");
  EXPECT_EQ(shown.document.text(), "D[] A[] B[] C[] ");
}

TEST(GroupActionsTest, HaveShortcutsThatWorkInTheView)
{
  ViewWithActions shown("A[ab] B[] ");
  const auto press = [&](const std::string& selection, int key, Qt::KeyboardModifiers modifiers) {
    shown.view.expandAll();
    shown.select(selection);
    QCoreApplication::processEvents();
    QTest::keyClick(&shown.view, static_cast<Qt::Key>(key), modifiers);
    QCoreApplication::processEvents();
    return shown.document.text();
  };
  EXPECT_EQ(press("b", Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier), "A[ba] B[] ");
  EXPECT_EQ(press("A", Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier), "B[] A[ba] ");
  EXPECT_EQ(press("b", Qt::Key_Delete, Qt::NoModifier), "B[] A[a] b");
  EXPECT_EQ(press("B", Qt::Key_Delete, Qt::NoModifier), "A[a] b");
  EXPECT_EQ(press("b", Qt::Key_G, Qt::ControlModifier), "A[a] Group[b] ");
  EXPECT_EQ(shown.document.history.entries().size(), 5U);
}

TEST(GroupActionsTest, AskForTheGroupToWhichElementsMove)
{
  ViewWithActions shown("A[a] B[b] C[] d");
  shown.trigger(GroupActions::MoveToGroup, "ad");
  ASSERT_NE(shown.chooser(), nullptr);
  auto* filter = shown.chooser()->findChild<QLineEdit*>();
  QTest::keyClicks(filter, "b");
  QTest::keyClick(filter, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(shown.document.text(), "A[] B[bad] C[] ");
  EXPECT_EQ(shown.document.steps(), Texts{"Add to Group: 2 elements → B"});
}

TEST(GroupActionsTest, MoveNothingWhenTheChooserIsCancelled)
{
  ViewWithActions shown("A[] B[] a");
  shown.trigger(GroupActions::MoveToGroup, "a");
  QTest::keyClick(shown.chooser(), Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_EQ(shown.document.text(), "A[] B[] a");
}

TEST(GroupActionsTest, HaveTextsThatFollowTheLanguage)
{
  const ViewWithActions shown("A[] ");
  EXPECT_EQ(shown.action(GroupActions::MoveUp)->text(), "Move &Up");
  {
    const ShoutingTranslator otherLanguage;
    EXPECT_EQ(shown.action(GroupActions::MoveUp)->text(), "MOVE &UP");
  }
  EXPECT_EQ(shown.action(GroupActions::MoveUp)->text(), "Move &Up");
}

TEST(GroupChooserTest, OffersTheGroupsThatMatch)
{
  const EditedDocument<Identifier> document("A[] B[] C[] d");
  GroupChooser chooser(document.model);
  EXPECT_EQ(chooser.chosenGroup(), document.row('A'));
  auto* filter = chooser.findChild<QLineEdit*>();
  QTest::keyClick(filter, Qt::Key_Down);
  QTest::keyClick(filter, Qt::Key_Down);
  QTest::keyClick(filter, Qt::Key_Down);
  EXPECT_EQ(chooser.chosenGroup(), document.row('C'));
  QTest::keyClick(filter, Qt::Key_Up);
  EXPECT_EQ(chooser.chosenGroup(), document.row('B'));
  filter->setText("c");
  EXPECT_EQ(chooser.chosenGroup(), document.row('C'));
  filter->setText("no such name");
  EXPECT_FALSE(chooser.chosenGroup().isValid());
  const auto* buttons = chooser.findChild<QDialogButtonBox*>();
  EXPECT_FALSE(buttons->button(QDialogButtonBox::Ok)->isEnabled());
}

TEST(GroupChooserTest, ChoosesNothingWhenTheGroupIsDeletedMeanwhile)
{
  EditedDocument<Identifier> document("A[] ");
  const GroupChooser chooser(document.model);
  document.editor.deleteGroups(document.rows("A"));
  EXPECT_FALSE(chooser.chosenGroup().isValid());
}

}
}
