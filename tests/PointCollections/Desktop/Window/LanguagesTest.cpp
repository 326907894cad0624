// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/Languages.h"

#include "PointCollections/Desktop/Support/WindowTest.h"
#include "PointCollections/Desktop/Text/LocalCounts.h"
#include "Support/MoBytes.h"

#include <QtCore/QLocale>
#include <QtGui/QAction>
#include <QtTest/QTest>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace Tarvik::PointCollections {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class LanguagesTest : public WindowTest {
protected:
  LanguagesTest() = default;
  LanguagesTest(const LanguagesTest&) = delete;
  LanguagesTest& operator=(const LanguagesTest&) = delete;

  ~LanguagesTest() override
  {
    Languages::instance().setFolder(CatalogueFolder::ofThisProject());
    Languages::instance().choose("en");
  }

  /// From now on there are texts in these languages only, and the window is a new one.
  /// @param catalogues  for each code, the texts or other bytes
  void useCatalogues(const std::map<std::string, std::string>& catalogues)
  {
    for (const auto& [code, bytes] : catalogues) {
      const auto folder = file("locale") / code / "LC_MESSAGES";
      std::filesystem::create_directories(folder);
      std::ofstream(folder / "TKMService.mo", std::ios::binary) << bytes;
    }
    Languages::instance().setFolder({file("locale"), CatalogueFolder::ownDomain});
    window = windowWith(user);
    window->show();
  }

  /// The parts of the window in their order on the screen.
  std::string fromLeftToRight() const
  {
    QCoreApplication::processEvents();
    const auto left = [](const QWidget& part) { return part.mapToGlobal(QPoint()).x(); };
    std::string result;
    for (const auto& part :
         std::map<int, std::string>{{left(window->groups()), "groups"},
                                    {left(window->points()), "points"},
                                    {left(*window->findChild<QDockWidget*>()), "history"}})
      result += (result.empty() ? "" : " ") + part.second;
    return result;
  }

  void useArabicTexts()
  {
    useCatalogues({{"ar", moBytes({{"", "Language: ar\n"},
                                   {"Tarvik::PointCollections::FileCommands\4%1 cannot be opened.",
                                    "لا يمكن فتح %1."},
                                   {"Tarvik::PointCollections::Menus\4&File", "&ملف"}})}});
  }

  /// The titles of the menus.
  QStringList menus() const
  {
    QStringList titles;
    for (const auto* const action : window->menuBar()->actions())
      titles << action->text();
    return titles;
  }

  QList<QAction*> languageActions() const
  {
    return window->menuBar()->actions().constLast()->menu()->actions();
  }

  QStringList languages() const
  {
    QStringList texts;
    for (const auto* const action : languageActions())
      texts << action->text();
    return texts;
  }

  QAction* languageAction(const QString& text) const
  {
    for (auto* const action : languageActions()) {
      if (action->text() == text)
        return action;
    }
    return nullptr;
  }

  void choose(const QString& text) const
  {
    languageAction(text)->trigger();
    QCoreApplication::processEvents(); // by which windows get to know it
  }

  QString statistics() const { return window->statusBar()->findChild<QLabel*>()->text(); }
};

TEST_F(LanguagesTest, AreSwitchedByTheMenuWhileTheWindowIsOpen)
{
  const auto english = menus();
  createGroup("Europe", {element("Athens")});

  choose("&Deutsch");

  EXPECT_EQ(menus(), QStringList({"&Datei", "&Bearbeiten", "&Gruppen", "&Ansicht", "&Sprache"}));
  EXPECT_EQ(statistics(), "3 Elemente, 3 Punkte, 1 Gruppe, 2 Elemente in keiner Gruppe");
  EXPECT_EQ(window->findChild<QDockWidget*>()->windowTitle(), "Verlauf");
  EXPECT_EQ(window->groups().filterBox().placeholderText(), "Nach Namen filtern");
  EXPECT_EQ(window->points().accessibleName(), "Punkte im Raum");
  EXPECT_THAT(window->workspace().history().undoText().toStdString(),
              StartsWith("Gruppe erstellen"));

  choose("&English");

  EXPECT_EQ(menus(), english);
  EXPECT_THAT(window->workspace().history().undoText().toStdString(), StartsWith("Create Group"));
}

TEST_F(LanguagesTest, HaveTheSingularForOneThing)
{
  EXPECT_EQ(statistics(), "3 elements, 3 points, 0 groups, 3 elements in no group");
  createGroup("Europe", {element("Athens"), element("Berlin")});
  EXPECT_EQ(statistics(), "3 elements, 3 points, 1 group, 1 element in no group");

  Languages::instance().choose("de");
  EXPECT_EQ(localCountOfElements(1), "1 Element");
  EXPECT_EQ(localCountOfPoints(12'345), "12.345 Punkte");
  EXPECT_EQ(localCountOfGroups(2), "2 Gruppen");
}

TEST_F(LanguagesTest, AreOfferedIfThereAreTexts)
{
  useCatalogues({{"fr", moBytes({})}, {"de", moBytes({})}, {"es", moBytes({})}});

  EXPECT_EQ(languages(),
            QStringList({"As the &system", "&English", "&Deutsch", "Es&pañol", "&Français"}));
}

TEST_F(LanguagesTest, AreNamedAsThoseCallThemWhoSpeakThem)
{
  QStringList names;
  for (const auto* const code : {"en", "de", "fr", "es", "pl", "ja", "zh_CN", "ar"})
    names << Languages::nativeName(code);

  EXPECT_EQ(names, QStringList({"English", "Deutsch", "Français", "Español", "Polski", "日本語",
                                "简体中文", "العربية"}));
}

TEST_F(LanguagesTest, MirrorTheWindowIfTheyAreWrittenFromRightToLeft)
{
  useArabicTexts();
  EXPECT_EQ(fromLeftToRight(), "groups points history");

  choose("العربية");
  EXPECT_TRUE(window->isRightToLeft());
  EXPECT_EQ(fromLeftToRight(), "history points groups");
  EXPECT_EQ(menus().constFirst(), "&ملف");

  choose("&English");
  EXPECT_FALSE(window->isRightToLeft());
  EXPECT_EQ(fromLeftToRight(), "groups points history");
}

TEST_F(LanguagesTest, FindThePanelsWhereTheyWereInTheOtherDirection)
{
  useArabicTexts();
  choose("العربية");
  window->close();

  window = windowWith(user);
  window->show();
  EXPECT_EQ(fromLeftToRight(), "history points groups");
  window->findChild<QDockWidget*>()->close();
  window->close();

  Languages::instance().choose("en");
  window = windowWith(user);
  window->show();
  EXPECT_FALSE(window->findChild<QDockWidget*>()->isVisible());
  window->findChild<QDockWidget*>()->show();
  EXPECT_EQ(fromLeftToRight(), "groups points history");
}

TEST_F(LanguagesTest, DoNotMirrorThePoints)
{
  useArabicTexts();
  window->fileCommands().openFile(file("points.csv"));
  window->points().setFixedSize(200, 150);
  const auto picture = window->points().grab().toImage();

  Languages::instance().choose("ar");
  QCoreApplication::processEvents();
  EXPECT_EQ(window->points().grab().toImage(), picture);
}

TEST_F(LanguagesTest, LetTheKeysMoveTheBorderOfTheGroupsToTheirSide)
{
  useArabicTexts();
  const auto widthAfter = [&](Qt::Key key) {
    QTest::keyClick(window.get(), key, Qt::ControlModifier | Qt::AltModifier);
    QCoreApplication::processEvents();
    return window->groups().width();
  };
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  const auto width = window->groups().width();
  EXPECT_GT(widthAfter(Qt::Key_Right), width);
  EXPECT_EQ(widthAfter(Qt::Key_Left), width);

  choose("العربية");
  QCoreApplication::processEvents();
  EXPECT_GT(widthAfter(Qt::Key_Left), width);
  EXPECT_EQ(widthAfter(Qt::Key_Right), width);
}

TEST_F(LanguagesTest, KeepNamesTogetherInTextsFromRightToLeft)
{
  useArabicTexts();
  Languages::instance().choose("ar");

  window->fileCommands().openFile(file("missing (1).csv"));

  EXPECT_THAT(user->told.join(' ').toStdString(),
              StartsWith("لا يمكن فتح \u2068missing (1).csv\u2069."));
}

TEST_F(LanguagesTest, AreEnglishWithADamagedFileWhichIsToldOnce)
{
  useCatalogues({{"de", "not a catalogue"}});
  const auto english = menus();

  choose("&Deutsch");
  EXPECT_EQ(menus(), english);
  ASSERT_EQ(user->told.size(), 1);
  EXPECT_THAT(user->told.constFirst().toStdString(),
              AllOf(HasSubstr("de/LC_MESSAGES/TKMService.mo, byte "),
                    HasSubstr("Install the program again, or choose another language.")));

  choose("&English");
  window = windowWith(user);
  QCoreApplication::processEvents();
  EXPECT_TRUE(user->told.isEmpty());
}

TEST_F(LanguagesTest, AreEnglishWithoutAFileWhichIsToldWhenTheProgramStarts)
{
  Languages::instance().choose("sv");
  useCatalogues({{"de", moBytes({})}});
  QCoreApplication::processEvents();

  EXPECT_FALSE(window->isRightToLeft());
  EXPECT_EQ(menus().constFirst(), "&File");
  ASSERT_EQ(user->told.size(), 1);
  EXPECT_THAT(user->told.constFirst().toStdString(),
              AllOf(HasSubstr("\"sv\""), HasSubstr(file("locale").string())));
}

TEST_F(LanguagesTest, AreRemembered)
{
  choose("&Deutsch");

  window = windowWith(user);

  EXPECT_EQ(Languages::chosen(), "de");
  EXPECT_TRUE(languageAction("&Deutsch")->isChecked());
  EXPECT_EQ(window->windowTitle(), "Unbenannt[*]");
}

TEST_F(LanguagesTest, AreThatOfTheSystemUnlessOneIsChosen)
{
  EXPECT_TRUE(languageAction("As the &system")->isChecked());
  choose("&Deutsch");
  choose("Wie das &System");

  EXPECT_EQ(Languages::chosen(), "");
}

TEST_F(LanguagesTest, AlsoWriteNumbers)
{
  Languages::instance().choose("de");
  EXPECT_EQ(QLocale().toString(12345), "12.345");

  Languages::instance().choose("en");
  EXPECT_EQ(QLocale().toString(12345), "12,345");
}

}
}
