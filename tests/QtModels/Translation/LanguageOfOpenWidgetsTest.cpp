// SPDX-License-Identifier: MIT
// The language is switched while everything is open that the library can show.

#include "QtModels/History/History.h"
#include "QtModels/History/HistoryView.h"
#include "QtModels/Support/GermanTexts.h"
#include "QtModels/Support/ShownView.h"
#include "QtModels/Translation/QtTranslation.h"
#include "QtModels/Views/GroupActions.h"
#include "QtModels/Views/GroupChooser.h"
#include "Translator/Translator.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QAction>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;

/// A document with all its views; the user is about to give the group A the name of B.
class LanguageOfOpenWidgets : public ::testing::Test {
protected:
  LanguageOfOpenWidgets()
  {
    QtTranslation::install();
    shown.document.editor.createGroup(shown.document.rows("c"), "N");
    historyView.show();
    chooser.show();
    chooser.findChild<QLineEdit*>()->setText("b");
    QCoreApplication::processEvents(); // the windows that were shown have been active
    shown.view.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&shown.view));
    shown.view.setFocus();
    shown.view.setCurrentIndex(shown.row('A'));
    QTest::keyClick(&shown.view, Qt::Key_F2);
    shown.nameEdit()->selectAll();
    QTest::keyClicks(shown.nameEdit(), "B");
  }

  LanguageOfOpenWidgets(const LanguageOfOpenWidgets&) = delete;
  LanguageOfOpenWidgets& operator=(const LanguageOfOpenWidgets&) = delete;

  ~LanguageOfOpenWidgets() override
  {
    switchToEnglish();
    Translator::installCatalogue({});
  }

  void switchToGerman()
  {
    QCoreApplication::installTranslator(&german);
    QCoreApplication::processEvents();
  }

  void switchToEnglish()
  {
    QCoreApplication::removeTranslator(&german);
    QCoreApplication::processEvents();
  }

  /// One text of each part that is open.
  std::vector<std::string> texts() const
  {
    const auto& model = shown.document.model;
    const std::vector<QString> all = {
        model.headerData(GroupItemModelBase::CountColumn, Qt::Horizontal).toString(),
        shown.view.accessibleName(),
        shown.nameEdit()->accessibleName(),
        shown.nameEdit()->accessibleDescription(),
        actions->action(GroupActions::MoveUp)->text(),
        undo->text(),
        historyView.model()->index(1, 0).data().toString(),
        chooser.windowTitle(),
        chooser.findChild<QLineEdit*>()->placeholderText(),
        chooser.findChild<QListWidget*>()->accessibleName()};
    std::vector<std::string> result;
    for (const auto& text : all)
      result.push_back(text.toStdString());
    return result;
  }

  GermanTexts german;
  ShownView shown = ShownView("A[ab] B[] c");
  GroupActions* actions = new GroupActions(&shown.view);
  History history = History(shown.document.history);
  QAction* undo = history.createUndoAction(&history);
  HistoryView historyView = HistoryView(&history);
  GroupChooser chooser = GroupChooser(shown.document.model);
};

TEST_F(LanguageOfOpenWidgets, IsThatOfTheUserFromThenOn)
{
  const auto english = texts();
  EXPECT_THAT(english,
              ElementsAre("Members", "Groups", "Name of the group", "Another group has this name.",
                          "Move &Up", "Undo Create Group: N (1)", "Create Group: N (1)",
                          "Move to Group", "Find a group", "Groups"));

  switchToGerman();
  EXPECT_THAT(texts(), ElementsAre("Mitglieder", "Gruppen", "Name der Gruppe",
                                   "Eine andere Gruppe hat diesen Namen.", "Nach &oben",
                                   "Rückgängig: Gruppe erstellen: N (1)", "Gruppe erstellen: N (1)",
                                   "In Gruppe verschieben", "Gruppe suchen", "Gruppen"));

  switchToEnglish();
  EXPECT_EQ(texts(), english);
}

TEST_F(LanguageOfOpenWidgets, LeavesWhatTheUserIsDoing)
{
  const auto before = shown.document.text();
  switchToGerman();

  ASSERT_NE(shown.nameEdit(), nullptr) << "the name is still being typed";
  EXPECT_EQ(shown.nameEdit()->text(), "B");
  EXPECT_EQ(shown.selected(), "A");
  EXPECT_TRUE(shown.view.isExpanded(shown.row('A')));
  EXPECT_EQ(chooser.chosenGroup(), shown.document.row('B'));
  EXPECT_TRUE(chooser.isVisible());
  EXPECT_EQ(shown.document.text(), before);
  EXPECT_EQ(history.count(), 1);
}

TEST_F(LanguageOfOpenWidgets, IsThatOfTheNextStepToo)
{
  switchToGerman();
  shown.nameEdit()->setText("M");
  QTest::keyClick(shown.nameEdit(), Qt::Key_Return);
  QCoreApplication::processEvents();

  EXPECT_EQ(history.undoText(), "Gruppe umbenennen: A → M");
  switchToEnglish();
  EXPECT_EQ(history.undoText(), "Rename Group: A → M");
}

}
}
