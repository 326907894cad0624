// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Support/WindowTest.h"
#include "PointCollections/Desktop/Window/Languages.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtGui/QAccessible>
#include <QtGui/QAction>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

/// What users without a mouse or without a screen need.
class AccessibilityTest : public WindowTest {
protected:
  AccessibilityTest() { createGroup("Europe", {element("Athens"), element("Berlin")}); }

  AccessibilityTest(const AccessibilityTest&) = delete;
  AccessibilityTest& operator=(const AccessibilityTest&) = delete;
  ~AccessibilityTest() override { Languages::instance().choose("en"); }

  /// The actions of a menu, and complaints about letters that two of them share or that are
  /// missing. Names of languages in other letters have none.
  static QList<QAction*> actionsIn(const QMenu& menu, QStringList& complaints)
  {
    QList<QAction*> all;
    QSet<QChar> letters;
    for (auto* const action : menu.actions()) {
      if (action->isSeparator())
        continue;
      const auto letter = letterOf(action->text());
      const auto hasNone = letter.isNull() && action->shortcut().isEmpty() &&
                           action->text().contains(QRegularExpression("[A-Za-z]"));
      if (hasNone || letters.contains(letter))
        complaints << menu.title() + ": " + action->text();
      if (!letter.isNull())
        letters.insert(letter);
      all << action;
    }
    return all;
  }

  static QChar letterOf(const QString& text)
  {
    const auto mark = text.indexOf('&');
    return mark >= 0 && mark + 1 < text.size() ? text[mark + 1].toLower() : QChar();
  }

  QStringList complaintsAboutLetters() const
  {
    QStringList complaints;
    QSet<QChar> letters;
    for (const auto* const action : window->menuBar()->actions()) {
      const auto letter = letterOf(action->text());
      if (letter.isNull() || letters.contains(letter))
        complaints << action->text();
      letters.insert(letter);
      actionsIn(*action->menu(), complaints);
    }
    return complaints;
  }

  QSet<QAction*> actionsInMenus() const
  {
    QStringList ignored;
    QSet<QAction*> all;
    for (const auto* const action : window->menuBar()->actions()) {
      for (auto* const each : actionsIn(*action->menu(), ignored))
        all << each;
    }
    return all;
  }

  /// What the user can read, operate or look into.
  static bool needsName(QAccessible::Role role)
  {
    static const QSet<int> roles = {
        QAccessible::Button,   QAccessible::ButtonMenu,   QAccessible::Canvas,
        QAccessible::CheckBox, QAccessible::EditableText, QAccessible::List,
        QAccessible::ListItem, QAccessible::MenuItem,     QAccessible::StaticText,
        QAccessible::Table,    QAccessible::Tree,         QAccessible::TreeItem,
        QAccessible::ToolBar,  QAccessible::Cell,         QAccessible::ColumnHeader};
    return roles.contains(role);
  }

  static QString describe(const QAccessibleInterface& item)
  {
    const auto* const object = item.object();
    return QString("role %1 of %2")
        .arg(item.role())
        .arg(object ? object->metaObject()->className() : "an item");
  }

  /// What has no name, in an item and below it.
  static void findNameless(QAccessibleInterface& item, QStringList& found, int& named)
  {
    if (item.state().invisible)
      return;
    const bool hasName = !item.text(QAccessible::Name).isEmpty();
    if (needsName(item.role())) {
      named += hasName;
      if (!hasName)
        found << describe(item);
    }
    for (int i = 0; i < item.childCount(); ++i) {
      if (auto* const child = item.child(i))
        findNameless(*child, found, named);
    }
  }
};

TEST_F(AccessibilityTest, GivesEveryVisiblePartAndItemAName)
{
  window->groups().filterBox().setText("e"); // shows the counts
  QStringList nameless;
  int named = 0;

  findNameless(*QAccessible::queryAccessibleInterface(window.get()), nameless, named);

  EXPECT_EQ(nameless.join(", ").toStdString(), "");
  EXPECT_GT(named, 20) << "otherwise nothing has been looked at";
}

TEST_F(AccessibilityTest, DescribesWhatANameDoesNotTell)
{
  const auto descriptionOf = [](QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description);
  };

  EXPECT_FALSE(descriptionOf(window->points()).isEmpty());
  EXPECT_FALSE(descriptionOf(window->groups().filterBox()).isEmpty());
}

TEST_F(AccessibilityTest, HasALetterOrAKeyForEveryActionOfItsMenus)
{
  EXPECT_EQ(complaintsAboutLetters().join(", ").toStdString(), "");

  Languages::instance().choose("de");
  QCoreApplication::sendPostedEvents();
  EXPECT_EQ(window->menuBar()->actions().constFirst()->text(), "&Datei");
  EXPECT_EQ(complaintsAboutLetters().join(", ").toStdString(), "") << "in German";
}

TEST_F(AccessibilityTest, HasNothingOutsideTheMenusThatNeedsAMouse)
{
  const auto inMenus = actionsInMenus();
  auto elsewhere = window->groups().tree().actions();
  for (auto* const bar : window->findChildren<QToolBar*>())
    elsewhere += bar->actions();

  EXPECT_GT(elsewhere.size(), 8);
  for (auto* const action : elsewhere)
    EXPECT_TRUE(inMenus.contains(action)) << action->text().toStdString();
}

TEST_F(AccessibilityTest, LetsTheUserGoToEveryPanelByTab)
{
  QSet<QWidget*> reached;
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  window->groups().filterBox().setFocus();
  for (int i = 0; i < 12; ++i) {
    reached << QApplication::focusWidget();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }

  EXPECT_TRUE(reached.contains(&window->groups().filterBox()));
  EXPECT_TRUE(reached.contains(&window->groups().tree()));
  EXPECT_TRUE(reached.contains(&window->points()));
  EXPECT_TRUE(
      reached.contains(window->findChild<QWidget*>("history")->findChild<QAbstractItemView*>()));
}

TEST_F(AccessibilityTest, MakesAGroupOfElementsByKeysAlone)
{
  auto& tree = window->groups().tree();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  tree.setFocus();
  tree.setCurrentIndex(tree.model()->index(1, 0));
  QTest::qWait(1); // the actions follow

  QTest::keyClick(&tree, Qt::Key_G, Qt::ControlModifier);
  ASSERT_TRUE(QTest::qWaitFor(
      [] { return qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr; }));
  QTest::keyClicks(QApplication::focusWidget(), "Asia");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);

  EXPECT_TRUE(QTest::qWaitFor([this] {
    return groups() == std::vector<std::string>{"Europe", "Asia"};
  }));
}

}
}
