// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/MainWindow.h"
#include "PointCollections/Desktop/Support/WindowTest.h"
#include "PointCollections/Desktop/Window/FileNames.h"
#include "PointCollections/Text/UserError.h"

#include <QtCore/QMimeData>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtGui/QAction>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressDialog>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <thread>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Path = std::filesystem::path;

/// Files that can be read at once, but writing takes until it is cancelled.
class PatientFiles : public Files {
public:
  std::string readText(const Path& file) override { return m_disk->readText(file); }
  std::vector<std::byte> readBytes(const Path& file) override { return m_disk->readBytes(file); }
  FileStart readStart(const Path& file, std::size_t count) override
  {
    return m_disk->readStart(file, count);
  }
  WriteResult write(const Path& file, std::span<const std::byte> bytes) override
  {
    return m_disk->write(file, bytes);
  }
  std::optional<WriteResult> writeUnlessCancelled(const Path& file,
                                                  std::span<const std::byte> bytes,
                                                  Cancellation& cancellation) override
  {
    while (!cancellation.isCancelled())
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return m_disk->writeUnlessCancelled(file, bytes, cancellation);
  }
  std::unique_ptr<FileLock> lockForSaving(const Path& file) override
  {
    return m_disk->lockForSaving(file);
  }
  bool exists(const Path& file) override { return m_disk->exists(file); }
  bool areSame(const Path& one, const Path& other) override { return m_disk->areSame(one, other); }
  std::vector<std::string> namesIn(const Path& folder) override { return m_disk->namesIn(folder); }

private:
  std::shared_ptr<Files> m_disk = diskFiles();
};

/// Whether a save in the file has not ended yet.
bool isLocked(const std::filesystem::path& file)
{
  try {
    diskFiles()->lockForSaving(file);
    return false;
  } catch (const UserError&) {
    return true;
  }
}

class MainWindowTest : public WindowTest {};

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

TEST_F(MainWindowTest, AsksForTheColumnsOfATableThatNamesThemOtherwise)
{
  std::ofstream(file("towns.csv")) << "Town;Lon;Lat;H\nDublin;1;2;3\n";

  EXPECT_FALSE(window->fileCommands().openFile(file("towns.csv"))) << "the user does not want to";
  ASSERT_EQ(user->told.size(), 1);
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr("towns.csv"));
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr("Lon")) << "what was found";

  user->columns = PointColumns{.collection = 0, .x = 1, .y = 2, .z = 3, .group = {}, .place = {}};
  EXPECT_TRUE(window->fileCommands().openFile(file("towns.csv")));
  EXPECT_EQ(window->windowTitle(), "towns.csv[*]");
  EXPECT_EQ(window->workspace().editor().document()->findByName("Dublin")->points.at(0).y, 2);
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

TEST_F(MainWindowTest, KeepsTheOldFileWhenTheUserCancelsASave)
{
  auto own = std::make_unique<FakeQuestions>();
  own->write = file("saved.tkpc");
  window = std::make_unique<MainWindow>(std::make_shared<PatientFiles>(), std::move(own));
  window->fileCommands().openFile(file("points.csv"));
  std::ofstream(file("saved.tkpc")) << "old";
  createGroup("Europe", {element("Athens")});
  QTimer cancel;
  QObject::connect(&cancel, &QTimer::timeout, window.get(), [] {
    if (auto* const dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()))
      QTest::keyClick(dialog, Qt::Key_Escape);
  });
  cancel.start(10);

  EXPECT_FALSE(window->fileCommands().save());

  EXPECT_TRUE(window->isWindowModified());
  std::string content;
  std::ifstream(file("saved.tkpc")) >> content;
  EXPECT_EQ(content, "old");
  EXPECT_TRUE(QTest::qWaitFor([this] { return !isLocked(file("saved.tkpc")); }));
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

TEST_F(MainWindowTest, ForgetsARecentFileThatIsGone)
{
  auto& files = window->fileCommands();
  std::filesystem::remove(file("points.csv"));

  Q_EMIT files.recentFiles().chosen(nameOf(file("points.csv")));

  EXPECT_THAT(RecentFiles::names(), IsEmpty());
  ASSERT_EQ(user->told.size(), 1);
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr(file("points.csv").string()));
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr("not there any more"));
  EXPECT_EQ(window->groups().model().rowCount(), 3) << "the document stays open";
}

TEST_F(MainWindowTest, KeepsARecentFileThatIsDamagedAndTellsThePlace)
{
  user->write = file("saved.tkpc");
  window->fileCommands().save();
  std::filesystem::resize_file(file("saved.tkpc"), 60);

  Q_EMIT window->fileCommands().recentFiles().chosen(nameOf(file("saved.tkpc")));

  EXPECT_TRUE(RecentFiles::names().contains(nameOf(file("saved.tkpc"))));
  ASSERT_EQ(user->told.size(), 1);
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr(file("saved.tkpc").string()));
  EXPECT_THAT(user->told[0].toStdString(), HasSubstr("byte"));
}

TEST_F(MainWindowTest, ExpandsTheGroupsOfAProjectAsTheyWere)
{
  createGroup("Europe", {element("Athens")});
  createGroup("Asia", {element("Cairo")});
  auto& tree = window->groups().tree();
  tree.collapseAll();
  tree.expand(tree.model()->index(1, 0));
  user->write = file("saved.tkpc");
  window->fileCommands().save();
  window->close();

  window = windowWith(user);
  window->fileCommands().openFile(file("saved.tkpc"));

  auto& reopened = window->groups().tree();
  EXPECT_FALSE(reopened.isExpanded(reopened.model()->index(0, 0)));
  EXPECT_TRUE(reopened.isExpanded(reopened.model()->index(1, 0)));
  EXPECT_FALSE(window->isWindowModified()) << "looking at groups is no change";

  window->fileCommands().openFile(file("points.csv"));
  window->fileCommands().openFile(file("saved.tkpc"));
  EXPECT_TRUE(reopened.isExpanded(reopened.model()->index(1, 0)))
      << "also without leaving the program";
}

TEST_F(MainWindowTest, SavesTheExpandedGroupsWithTheProject)
{
  createGroup("Europe", {element("Athens")});
  createGroup("Asia", {element("Cairo")});
  auto& tree = window->groups().tree();
  tree.collapseAll();
  tree.expand(tree.model()->index(1, 0));
  user->write = file("saved.tkpc");
  window->fileCommands().save();

  std::filesystem::rename(file("saved.tkpc"),
                          file("sent.tkpc")); // to somebody without the settings
  window->fileCommands().openFile(file("sent.tkpc"));

  EXPECT_FALSE(tree.isExpanded(tree.model()->index(0, 0)));
  EXPECT_TRUE(tree.isExpanded(tree.model()->index(1, 0)));
}

TEST_F(MainWindowTest, WidensTheGroupsByKeysAndRemembersIt)
{
  const auto width = [this] { return window->groups().width(); };
  const auto widthBefore = width();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));

  QTest::keyClick(window.get(), Qt::Key_Right, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_GT(width(), widthBefore);
  const auto widthAfter = width();
  QTest::keyClick(window.get(), Qt::Key_Left, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(width(), widthBefore);
  QTest::keyClick(window.get(), Qt::Key_Right, Qt::ControlModifier | Qt::AltModifier);
  window->close();

  window = windowWith(user);
  window->show();
  EXPECT_EQ(width(), widthAfter);
}

TEST_F(MainWindowTest, KeepsBothSidesHoweverFarTheirBorderIsMoved)
{
  window->widenGroups(100'000);
  EXPECT_GT(window->points().width(), 50);

  window->widenGroups(-100'000);
  EXPECT_GT(window->groups().width(), 50);
}

TEST_F(MainWindowTest, KeepsUnsavedWorkWhenTheSystemEndsTheSession)
{
  user->write = file("saved.tkpc");
  window->fileCommands().save();
  createGroup("Europe", {element("Athens")});

  window->prepareForEnd();
  EXPECT_TRUE(window->close());
  EXPECT_THAT(user->told, IsEmpty()) << "there is nobody to ask";

  window = windowWith(user);
  user->found = Questions::FoundWork::Recover;
  window->fileCommands().openFile(file("saved.tkpc"));
  EXPECT_THAT(groups(), ElementsAre("Europe"));
}

TEST_F(MainWindowTest, AsksAgainWhenTheUserGoesOnAfterAnEndThatWasCalledOff)
{
  createGroup("Europe", {element("Athens")});
  window->prepareForEnd();

  createGroup("Asia", {element("Cairo")});

  EXPECT_FALSE(window->close());
  EXPECT_THAT(user->told, ElementsAre("unsaved: points.csv"));
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
