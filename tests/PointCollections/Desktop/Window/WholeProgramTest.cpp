// SPDX-License-Identifier: MIT
// From opening a file to closing the window, only by keys and the mouse. What was saved is read by
// the console program.

#include "PointCollections/Console/Support/Programs.h"
#include "PointCollections/Desktop/Window/FakeQuestions.h"
#include "PointCollections/Desktop/Window/MainWindow.h"

#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Tarvik::PointCollections {
namespace {

using ::testing::IsEmpty;

/// A window in which everything is done by keys and the mouse.
class WholeProgram : public ::testing::Test {
protected:
  WholeProgram()
  {
    const auto settings = QString::fromStdString(Utf8::fromPath(folder.path()));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings);
    qputenv("XDG_STATE_HOME", settings.toUtf8());
    auto questions = std::make_unique<FakeQuestions>();
    user = questions.get();
    window = std::make_unique<MainWindow>(diskFiles(), std::move(questions));
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  void press(const QKeySequence& keys) const { QTest::keySequence(window.get(), keys); }

  GroupTreeView& tree() const { return window->groups().tree(); }

  QModelIndex row(const char* name) const
  {
    const auto& model = *tree().model();
    const auto found = model.match(model.index(0, 0), Qt::DisplayRole, name, 1,
                                   Qt::MatchExactly | Qt::MatchRecursive);
    EXPECT_FALSE(found.isEmpty()) << name;
    return found.value(0);
  }

  void click(const char* name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
  {
    tree().scrollTo(row(name));
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, modifiers,
                      tree().visualRect(row(name)).center());
    QCoreApplication::processEvents();
  }

  /// Types a text where the focus is, such as the new name of a group, and ends it with Enter.
  static void type(const QString& text)
  {
    auto* const edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(edit, nullptr);
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
  }

  void dropSelectionOnto(const char* name) const
  {
    const std::unique_ptr<QMimeData> data(
        tree().model()->mimeData(tree().selectionModel()->selectedRows()));
    const auto place = tree().visualRect(row(name)).center();
    QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(tree().viewport(), &enter);
    QDragMoveEvent move(place, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(tree().viewport(), &move);
    QDropEvent drop(place, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(tree().viewport(), &drop);
    QCoreApplication::processEvents();
  }

  const TemporaryFolder folder;
  FakeQuestions* user = nullptr;
  std::unique_ptr<MainWindow> window;
};

TEST_F(WholeProgram, SavesWhatTheConsoleProgramReads)
{
  user->open = folder.write("cities.csv", "collection,x,y,z\n"
                                          "Athens,1,0,0\nBerlin,0,1,0\nCairo,0,0,1\nDakar,1,1,0\n");
  user->write = folder.path() / "cities.tkpc";

  press(QKeySequence::Open);
  click("Athens");
  click("Berlin", Qt::ControlModifier);
  press(Qt::CTRL | Qt::Key_G);
  ASSERT_NO_FATAL_FAILURE(type("Europe"));
  click("Dakar");
  press(Qt::CTRL | Qt::Key_G);
  ASSERT_NO_FATAL_FAILURE(type("Äfrika"));
  click("Cairo");
  dropSelectionOnto("Äfrika");
  click("Europe");
  press(QKeySequence::Delete);
  EXPECT_EQ(window->workspace().editor().document()->getGroups().size(), 1U);
  press(QKeySequence::Undo);
  press(QKeySequence::Save);
  EXPECT_FALSE(window->isWindowModified());
  EXPECT_TRUE(window->close());

  EXPECT_THAT(user->told, IsEmpty()) << user->told.join('\n').toStdString();
  const auto outcome =
      runProgram(folder, {Utf8::fromPath(*user->write), "--quiet", "--command", "show"});
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, R"(cities.tkpc: 4 elements in 2 groups
├─ Europe (2)
│  ├─ Athens
│  └─ Berlin
├─ Äfrika (2)
│  ├─ Dakar
│  └─ Cairo
└─ ungrouped (0)
)");
}

TEST_F(WholeProgram, ReadsWhatTheConsoleProgramSaves)
{
  const auto points = folder.write("cities.csv", "collection,x,y,z\nAthens,1,0,0\nBerlin,0,1,0\n");
  const auto project = folder.path() / "cities.tkpc";
  const auto outcome =
      runProgram(folder, {Utf8::fromPath(points), "--command", "create Europe Berlin", "--command",
                          "save \"" + Utf8::fromPath(project) + '"'});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  user->open = project;

  press(QKeySequence::Open);

  EXPECT_EQ(row("Berlin").parent(), row("Europe"));
  EXPECT_FALSE(row("Athens").parent().isValid());
  EXPECT_TRUE(window->close());
}

}
}
