// SPDX-License-Identifier: MIT
#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "QtModels/Editing/GroupSubjects.h"
#include "QtModels/History/History.h"
#include "QtModels/History/HistoryGroup.h"
#include "QtModels/History/HistoryModel.h"
#include "QtModels/History/HistoryView.h"
#include "QtModels/Support/GermanTexts.h"
#include "QtModels/Translation/LanguageWatcher.h"
#include "QtModels/Translation/QtTranslation.h"
#include "Translator/Translator.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QAction>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// The texts are English at first, and again after each test.
class LanguageTest : public ::testing::Test {
protected:
  LanguageTest() { QtTranslation::install(); }

  LanguageTest(const LanguageTest&) = delete;
  LanguageTest& operator=(const LanguageTest&) = delete;

  ~LanguageTest() override
  {
    QCoreApplication::removeTranslator(&german);
    Translator::installCatalogue({});
  }

  void switchToGerman() { QCoreApplication::installTranslator(&german); }
  void switchToEnglish() { QCoreApplication::removeTranslator(&german); }

  /// A command that names its group, in the language that the user has chosen.
  std::shared_ptr<CommandBase> createEurope()
  {
    return std::make_shared<CompactTKGroupCmd<Identifier>>(
        provider,
        [](auto groups) {
          return std::make_shared<CreateTKGroupCmd<Identifier>>(groups, std::vector<Identifier>{},
                                                                "Europe");
        },
        [] {
          return Translator::translate("CreateTKGroupCmd", "Create Group", nullptr, -1) +
                 ": Europe";
        });
  }

  GermanTexts german;
  std::shared_ptr<TestProvider<Identifier>> provider = std::make_shared<TestProvider<Identifier>>();
  History history;
};

TEST_F(LanguageTest, TranslatesTheTextsOfTheCommands)
{
  switchToGerman();

  EXPECT_EQ(Translator::translate("CreateTKGroupCmd", "Create Group", nullptr, -1),
            "Gruppe erstellen");
}

TEST_F(LanguageTest, LeavesATextAsItIsWithoutATranslation)
{
  switchToGerman();

  EXPECT_EQ(Translator::translate("Menu", "Quit", nullptr, -1), "Quit");
  EXPECT_EQ(Translator::translate(nullptr, "Quit", nullptr, -1), "Quit");
  EXPECT_EQ(Translator::translate("Menu", nullptr, nullptr, -1), "");
}

TEST_F(LanguageTest, TranslatesWhatACommandIsCalledWhenItIsMade)
{
  switchToGerman();

  const CreateTKGroupCmd<Identifier> command(provider, {}, "Europe");

  EXPECT_EQ(command.getDescription(), "Gruppe erstellen");
}

TEST_F(LanguageTest, HasItsOwnWordsForNumbersOfElementsAndGroups)
{
  switchToGerman();

  EXPECT_EQ(GroupSubjects::elements(3, "Paris"), "3 Elemente");
  EXPECT_EQ(GroupSubjects::groups({"A", "B", "C", "D"}), "4 Gruppen");
}

TEST_F(LanguageTest, IsFollowedByTheTextsOfAHistory)
{
  history.push(createEurope());
  QString told;
  QObject::connect(&history, &History::undoTextChanged, [&](const QString& text) { told = text; });

  switchToGerman();
  EXPECT_EQ(told, "Gruppe erstellen: Europe");
  EXPECT_EQ(history.undoText(), told);
  switchToEnglish();
  EXPECT_EQ(told, "Create Group: Europe");
}

TEST_F(LanguageTest, IsFollowedByActions)
{
  HistoryGroup group;
  group.addHistory(&history);
  history.setActive();
  auto* const undo = history.createUndoAction(&history);
  auto* const redo = history.createRedoAction(&history);
  auto* const undoInGroup = group.createUndoAction(&group);
  history.push(createEurope());
  EXPECT_EQ(undo->text(), "Undo Create Group: Europe");

  switchToGerman();
  EXPECT_EQ(undo->text(), "Rückgängig: Gruppe erstellen: Europe");
  EXPECT_EQ(redo->text(), "Wiederherstellen");
  EXPECT_EQ(undoInGroup->text(), undo->text());

  switchToEnglish();
  EXPECT_EQ(undo->text(), "Undo Create Group: Europe");
  EXPECT_EQ(redo->text(), "Redo");
}

TEST_F(LanguageTest, IsFollowedByAnOpenView)
{
  history.push(createEurope());
  HistoryView view(&history);
  view.show();
  int changes = 0;
  QObject::connect(view.model(), &QAbstractItemModel::dataChanged, [&] { ++changes; });

  switchToGerman();

  EXPECT_EQ(view.model()->index(0, 0).data().toString(), "<leer>");
  EXPECT_EQ(view.model()->index(1, 0).data().toString(), "Gruppe erstellen: Europe");
  EXPECT_EQ(changes, 2);
}

TEST_F(LanguageTest, DoesNotChangeWhatTheApplicationHasNamed)
{
  HistoryView view(&history);
  view.setEmptyLabel("as opened");
  auto* const undo = history.createUndoAction(&history, "Take back");

  switchToGerman();

  EXPECT_EQ(view.model()->index(0, 0).data().toString(), "as opened");
  EXPECT_EQ(undo->text(), "Take back");
}

TEST_F(LanguageTest, IsUsedForTheMessagesOfFailures)
{
  QString message;
  QObject::connect(&history, &History::failed, [&](const QString& sent) { message = sent; });
  switchToGerman();

  history.push(nullptr);

  EXPECT_TRUE(message.startsWith("Ein Fehler ist aufgetreten: ")) << message.toStdString();
}

TEST_F(LanguageTest, IsToldOncePerChangeByTheWatcher)
{
  int changes = 0;
  const QObject context;
  QObject::connect(LanguageWatcher::instance(), &LanguageWatcher::languageChanged, &context,
                   [&] { ++changes; });

  switchToGerman();
  EXPECT_EQ(changes, 1);
  switchToEnglish();
  EXPECT_EQ(changes, 2);
}

}
}
