// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/Languages.h"

#include "PointCollections/Desktop/Support/WindowTest.h"

#include <QtGui/QAction>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::StartsWith;

class LanguagesTest : public WindowTest {
protected:
  LanguagesTest() = default;
  LanguagesTest(const LanguagesTest&) = delete;
  LanguagesTest& operator=(const LanguagesTest&) = delete;
  ~LanguagesTest() override { Languages::instance().choose("en"); }

  /// The titles of the menus.
  QStringList menus() const
  {
    QStringList titles;
    for (const auto* const action : window->menuBar()->actions())
      titles << action->text();
    return titles;
  }

  QAction* languageAction(const QString& text) const
  {
    for (auto* const action : window->menuBar()->actions().constLast()->menu()->actions()) {
      if (action->text() == text)
        return action;
    }
    return nullptr;
  }

  void choose(const QString& text) const
  {
    languageAction(text)->trigger();
    QCoreApplication::sendPostedEvents(); // by which windows get to know it
  }

  QString statistics() const { return window->statusBar()->findChild<QLabel*>()->text(); }
};

TEST_F(LanguagesTest, AreSwitchedByTheMenuWhileTheWindowIsOpen)
{
  const auto english = menus();
  createGroup("Europe", {element("Athens")});

  choose("&Deutsch");

  EXPECT_EQ(menus(), QStringList({"&Datei", "&Bearbeiten", "&Gruppen", "&Ansicht", "&Sprache"}));
  EXPECT_EQ(statistics(), "3 Elemente, 3 Punkte, 1 Gruppen, 2 Elemente in keiner Gruppe");
  EXPECT_EQ(window->findChild<QDockWidget*>()->windowTitle(), "Verlauf");
  EXPECT_EQ(window->groups().filterBox().placeholderText(), "Nach Namen filtern");
  EXPECT_EQ(window->points().accessibleName(), "Punkte im Raum");
  EXPECT_THAT(window->workspace().history().undoText().toStdString(),
              StartsWith("Gruppe erstellen"));

  choose("&English");

  EXPECT_EQ(menus(), english);
  EXPECT_THAT(window->workspace().history().undoText().toStdString(), StartsWith("Create Group"));
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
