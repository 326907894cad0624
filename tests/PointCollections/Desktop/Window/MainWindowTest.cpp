// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/MainWindow.h"
#include "PointCollections/Desktop/Window/FakeQuestions.h"

#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtGui/QAction>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// The window with a document of three elements, and a user who answers as the test says.
class MainWindowTest : public ::testing::Test {
protected:
  MainWindowTest()
  {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    qputenv("XDG_STATE_HOME", m_folder.path().toUtf8());
    std::ofstream(file("points.csv"))
        << "collection,x,y,z\nAthens,1,0,0\nBerlin,0,1,0\nCairo,0,0,1\n";
    window->fileCommands().openFile(file("points.csv"));
    window->show();
  }

  std::filesystem::path file(const char* name) const
  {
    return std::filesystem::path(m_folder.path().toStdString()) / name;
  }

  GUIdentifier element(const char* name) const
  {
    return window->workspace().editor().document()->findByName(name)->id;
  }

  void createGroup(const std::string& name, const std::vector<GUIdentifier>& elements) const
  {
    window->groups().editor().operations().createGroup(elements, name);
  }

  std::vector<std::string> groups() const
  {
    std::vector<std::string> names;
    for (const auto& group : window->workspace().editor().document()->getGroups())
      names.push_back(group.getName());
    return names;
  }

  /// A window with another user.
  std::unique_ptr<MainWindow> windowWith(FakeQuestions*& questions) const
  {
    auto own = std::make_unique<FakeQuestions>();
    questions = own.get();
    return std::make_unique<MainWindow>(diskFiles(), std::move(own));
  }

private:
  QTemporaryDir m_folder;

protected:
  FakeQuestions* user = nullptr;
  std::unique_ptr<MainWindow> window = windowWith(user);
};

TEST_F(MainWindowTest, OpensPointsAndShowsThem)
{
  EXPECT_EQ(window->windowTitle(), "points.csv[*]");
  EXPECT_FALSE(window->isWindowModified());
  EXPECT_EQ(window->groups().model().rowCount(), 3);
  EXPECT_THAT(user->told, IsEmpty());
}

TEST_F(MainWindowTest, SavesAProjectThatCanBeOpenedAgain)
{
  createGroup("Europe", {element("Athens"), element("Berlin")});
  EXPECT_TRUE(window->isWindowModified());
  user->write = file("saved.tkpc");

  EXPECT_TRUE(window->fileCommands().save());

  EXPECT_EQ(user->suggested, "points.tkpc");
  EXPECT_FALSE(window->isWindowModified());
  EXPECT_EQ(window->windowTitle(), "saved.tkpc[*]");
  FakeQuestions* other = nullptr;
  const auto second = windowWith(other);
  ASSERT_TRUE(second->fileCommands().openFile(file("saved.tkpc")));
  const auto& reopened = second->workspace().editor().document()->getGroups();
  ASSERT_EQ(reopened.size(), 1U);
  EXPECT_EQ(reopened[0].getName(), "Europe");
  EXPECT_EQ(reopened[0].numberOfGroupMembers(), 2U);
}

TEST_F(MainWindowTest, UndoesAndRedoesWithTitleAndColours)
{
  createGroup("Europe", {element("Athens")});
  const auto undo = window->workspace().history().undoText();

  window->workspace().history().undo();
  EXPECT_THAT(groups(), IsEmpty());
  EXPECT_FALSE(window->isWindowModified());

  window->workspace().history().redo();
  EXPECT_THAT(groups(), ElementsAre("Europe"));
  EXPECT_THAT(undo.toStdString(), HasSubstr("Europe"));
}

TEST_F(MainWindowTest, SelectsInTheTreeWhatIsSelectedInSpace)
{
  createGroup("Europe", {element("Berlin")});
  QTest::keyClick(&window->points(), Qt::Key_A, Qt::ControlModifier);

  EXPECT_THAT(
      window->groups().selectedElements(),
      ::testing::UnorderedElementsAre(element("Athens"), element("Berlin"), element("Cairo")));
}

TEST_F(MainWindowTest, SelectsInSpaceWhatIsSelectedInTheTree)
{
  createGroup("Europe", {element("Berlin"), element("Cairo")});
  auto& tree = window->groups().tree();

  tree.setCurrentIndex(tree.model()->index(0, 0));
  QTest::qWait(1);

  EXPECT_THAT(window->points().selection(), ElementsAre(1U, 2U)) << "the members of the group";
}

TEST_F(MainWindowTest, FiltersTheTree)
{
  window->groups().filterBox().setText("ir");

  EXPECT_EQ(window->groups().tree().model()->rowCount(), 1);
}

TEST_F(MainWindowTest, AsksAboutUnsavedChanges)
{
  createGroup("Europe", {element("Athens")});

  user->unsaved = Questions::UnsavedChanges::Cancel;
  EXPECT_FALSE(window->close());
  EXPECT_THAT(user->told, ElementsAre("unsaved: points.csv"));

  user->unsaved = Questions::UnsavedChanges::Save;
  user->write = file("saved.tkpc");
  EXPECT_TRUE(window->close());
  EXPECT_TRUE(std::filesystem::exists(file("saved.tkpc")));
}

TEST_F(MainWindowTest, KeepsTheDocumentWhenAnotherCannotBeOpened)
{
  std::ofstream(file("bad.csv")) << "collection,x,y,z\nAthens,1,0\n";

  EXPECT_FALSE(window->fileCommands().openFile(file("bad.csv")));

  EXPECT_EQ(window->groups().model().rowCount(), 3);
  ASSERT_EQ(user->told.size(), 1);
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr("bad.csv cannot be opened."));
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr("2")) << "the line";
}

TEST_F(MainWindowTest, AsksBeforeItOverwritesTheChangesOfOthers)
{
  user->write = file("saved.tkpc");
  createGroup("Europe", {element("Athens")});
  window->fileCommands().save();
  std::ofstream(file("saved.tkpc"), std::ios::app) << "x";
  createGroup("Asia", {element("Cairo")});

  EXPECT_FALSE(window->fileCommands().save());
  EXPECT_TRUE(window->isWindowModified());

  user->overwrites = true;
  EXPECT_TRUE(window->fileCommands().save());
  EXPECT_FALSE(window->isWindowModified());
  EXPECT_THAT(user->told, ElementsAre("overwrite", "overwrite"));
}

TEST_F(MainWindowTest, ExportsGroupsThatOpenReadsBack)
{
  createGroup("Europe", {element("Athens")});
  user->write = file("groups.csv");
  window->fileCommands().exportGroups();
  user->unsaved = Questions::UnsavedChanges::Discard;

  ASSERT_TRUE(window->fileCommands().openFile(file("groups.csv")));

  EXPECT_THAT(groups(), ElementsAre("Europe"));
}

TEST_F(MainWindowTest, ExportsThePicture)
{
  user->write = file("points.png");
  window->fileCommands().exportPicture([this] { return window->points().picture(1); });

  const QImage picture(QString::fromStdString(file("points.png").string()));
  EXPECT_EQ(picture.size(), window->points().size());
}

TEST_F(MainWindowTest, RemembersFilesThatWereOpened)
{
  EXPECT_EQ(window->fileCommands().recentFiles().names().size(), 1);
  EXPECT_TRUE(window->fileCommands().recentFiles().names()[0].endsWith("points.csv"));
}

TEST_F(MainWindowTest, OpensAFileThatIsDroppedOnIt)
{
  std::ofstream(file("other.csv")) << "collection,x,y,z\nDublin,1,0,0\n";
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file("other.csv").string()))});
  QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);

  QApplication::sendEvent(window.get(), &enter);
  QApplication::sendEvent(window.get(), &drop);

  EXPECT_EQ(window->windowTitle(), "other.csv[*]");
}

TEST_F(MainWindowTest, OffersWorkThatACrashHasInterrupted)
{
  user->write = file("saved.tkpc");
  window->fileCommands().save();
  createGroup("Europe", {element("Athens")});
  window->workspace().keepUnsavedWork();
  window.reset(); // without a question, as in a crash

  window = windowWith(user);
  user->found = Questions::FoundWork::Recover;
  ASSERT_TRUE(window->fileCommands().openFile(file("saved.tkpc")));

  EXPECT_THAT(groups(), ElementsAre("Europe"));
  EXPECT_TRUE(window->isWindowModified());
  ASSERT_EQ(user->told.size(), 1);
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr("1 group"));
}

}
}
