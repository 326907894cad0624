// SPDX-License-Identifier: MIT
// Drags with the mouse of an X server, as a user makes them: xdotool moves it.

#include "QtModels/Support/EditedDocument.h"
#include "QtModels/Views/GroupTreeView.h"
#include "QtModels/Views/ProxyChain.h"

#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QScrollBar>

#include <gtest/gtest.h>

#include <string>

namespace Tarvik {
namespace {

constexpr auto milliseconds = 1000;
constexpr int secondsUntilGivenUp = 60;

enum class Part { Top, Middle, Bottom };

/// A view at a place of the screen, with all groups expanded. No window manager is needed.
template <class View>
struct ViewAt {
  ViewAt(EditedDocument<Identifier>& document, const QPoint& place)
  {
    view.setModel(&document.model);
    view.expandAll();
    view.setWindowFlag(Qt::FramelessWindowHint);
    view.setGeometry(QRect(place, QSize(250, 300)));
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    QTest::qWait(milliseconds / 5);
  }

  QPoint at(const QModelIndex& row, Part part = Part::Middle) const
  {
    const auto rect = view.visualRect(row);
    const auto y = part == Part::Top      ? rect.top() + 1
                   : part == Part::Bottom ? rect.bottom() - 1
                                          : rect.center().y();
    return view.viewport()->mapToGlobal(QPoint(rect.left() + 10, y));
  }

  View view;
};

/// What the mouse does, one thing after the other, while the program goes on.
class Mouse {
public:
  Mouse& moveTo(const QPoint& place)
  {
    const auto x = QString::number(place.x());
    m_arguments << "mousemove" << x << QString::number(place.y());
    return pause(0.1);
  }

  Mouse& press()
  {
    m_arguments << "mousedown"
                << "1";
    return pause(0.1);
  }

  Mouse& release()
  {
    m_arguments << "mouseup"
                << "1";
    return pause(0.2);
  }

  Mouse& pause(double seconds)
  {
    m_arguments << "sleep" << QString::number(seconds);
    return *this;
  }

  /// Presses the button, and moves so far that a drag begins.
  Mouse& grab(const QPoint& place)
  {
    moveTo(place).press();
    for (const int distance : {5, 10, 15, 20})
      moveTo(place + QPoint(distance, 0));
    return *this;
  }

  /// Moves twice, since the first move into a window only enters it.
  Mouse& dragTo(const QPoint& place) { return moveTo(place - QPoint(3, 0)).moveTo(place); }

  void run() const
  {
    QProcess xdotool;
    xdotool.start("xdotool", m_arguments);
    const bool isFinished =
        QTest::qWaitFor([&xdotool] { return xdotool.state() == QProcess::NotRunning; },
                        secondsUntilGivenUp * milliseconds);
    ASSERT_TRUE(isFinished);
    ASSERT_EQ(xdotool.exitCode(), 0) << xdotool.readAllStandardError().toStdString();
    QTest::qWait(milliseconds / 5);
  }

private:
  QStringList m_arguments;
};

using GroupView = ViewAt<GroupTreeView>;

TEST(MouseDragTest, PutsAMemberIntoAnotherGroup)
{
  EditedDocument<Identifier> document("A[ab] B[c] d");
  const GroupView window(document, {50, 50});
  Mouse().grab(window.at(document.row('a'))).dragTo(window.at(document.row('B'))).release().run();
  EXPECT_EQ(document.text(), "A[b] B[ca] d");
  EXPECT_EQ(document.history.entries().size(), 1U);
}

TEST(MouseDragTest, PutsAnElementBetweenMembers)
{
  EditedDocument<Identifier> document("A[ab] B[c] d");
  const GroupView window(document, {50, 50});
  Mouse()
      .grab(window.at(document.row('d')))
      .dragTo(window.at(document.row('b'), Part::Top))
      .release()
      .run();
  EXPECT_EQ(document.text(), "A[adb] B[c] ");
}

TEST(MouseDragTest, MovesAllSelectedRows)
{
  EditedDocument<Identifier> document("A[abc] B[] d");
  GroupView window(document, {50, 50});
  for (const char name : {'d', 'c', 'a'})
    window.view.selectionModel()->select(document.row(name),
                                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
  Mouse().grab(window.at(document.row('c'))).dragTo(window.at(document.row('B'))).release().run();
  EXPECT_EQ(document.text(), "A[b] B[acd] ");
  EXPECT_EQ(document.history.entries().size(), 1U);
}

TEST(MouseDragTest, MovesAGroup)
{
  EditedDocument<Identifier> document("A[] B[] C[] ");
  const GroupView window(document, {50, 50});
  Mouse()
      .grab(window.at(document.row('C')))
      .dragTo(window.at(document.row('A'), Part::Top))
      .release()
      .run();
  EXPECT_EQ(document.text(), "C[] A[] B[] ");
}

TEST(MouseDragTest, MakesAMemberUngroupedBelowAllRows)
{
  EditedDocument<Identifier> document("A[ab] ");
  const GroupView window(document, {50, 50});
  Mouse()
      .grab(window.at(document.row('b')))
      .dragTo(window.at(document.row('b')) + QPoint(0, 150))
      .release()
      .run();
  EXPECT_EQ(document.text(), "A[a] b");
}

TEST(MouseDragTest, WorksBetweenWindowsOfOneDocument)
{
  EditedDocument<Identifier> document("A[ab] B[] ");
  const GroupView window(document, {50, 50});
  const GroupView other(document, {400, 50});
  Mouse().grab(window.at(document.row('a'))).dragTo(other.at(document.row('B'))).release().run();
  EXPECT_EQ(document.text(), "A[b] B[a] ");
}

TEST(MouseDragTest, ChangesNothingInAnotherDocument)
{
  EditedDocument<Identifier> document("A[ab] ");
  EditedDocument<Identifier> otherDocument("B[c] ");
  const GroupView window(document, {50, 50});
  const GroupView other(otherDocument, {400, 50});
  Mouse()
      .grab(window.at(document.row('a')))
      .dragTo(other.at(otherDocument.row('B')))
      .release()
      .run();
  EXPECT_EQ(document.text(), "A[ab] ");
  EXPECT_EQ(otherDocument.text(), "B[c] ");
}

TEST(MouseDragTest, ExpandsAGroupUnderTheMouseWithoutSelectingRows)
{
  EditedDocument<Identifier> document("A[ab] B[cd] ");
  GroupView window(document, {50, 50});
  window.view.collapse(document.row('B'));
  bool wasExpanded = false;
  QObject::connect(&window.view, &QTreeView::expanded, [&] {
    wasExpanded = true;
    EXPECT_EQ(window.view.selectionModel()->selectedRows(), QModelIndexList{document.row('a')});
  });
  Mouse()
      .grab(window.at(document.row('a')))
      .dragTo(window.at(document.row('B')))
      .pause(1.5)
      .release()
      .run();
  EXPECT_TRUE(wasExpanded);
  EXPECT_EQ(document.text(), "A[b] B[cda] ");
}

TEST(MouseDragTest, ScrollsNearTheEdgeOfTheView)
{
  EditedDocument<Identifier> document("A[abcdefghijklmnopqrstuvwxyz] ");
  const GroupView window(document, {50, 50});
  const auto& viewport = *window.view.viewport();
  const QPoint nearBottom(40, viewport.height() - 4);
  const auto* scrollBar = window.view.verticalScrollBar();
  ASSERT_EQ(scrollBar->value(), 0);
  Mouse()
      .grab(window.at(document.row('a')))
      .dragTo(viewport.mapToGlobal(nearBottom))
      .pause(1.5)
      .release()
      .run();
  EXPECT_GT(scrollBar->value(), 0);
}

TEST(MouseDragTest, LosesNoRowsInAViewOfQt)
{
  EditedDocument<Identifier> document("A[ab] B[c] ");
  ViewAt<QTreeView> window(document, {50, 50});
  window.view.setDragDropMode(QAbstractItemView::DragDrop);
  window.view.setDefaultDropAction(Qt::MoveAction);
  Mouse().grab(window.at(document.row('a'))).dragTo(window.at(document.row('B'))).release().run();
  EXPECT_EQ(document.text(), "A[b] B[ca] ");
  EXPECT_EQ(document.history.entries().size(), 1U);
}

TEST(MouseDragTest, SurvivesAHandlerThatThrows)
{
  EditedDocument<Identifier> document("A[ab] B[c] ");
  auto* editor = new GroupEditor<Identifier>(
      document.model, [](GroupRequest<Identifier>) -> bool { throw std::runtime_error("locked"); });
  QStringList messages;
  QObject::connect(editor, &GroupEditorBase::failed,
                   [&messages](const QString& message) { messages += message; });
  const GroupView window(document, {50, 50});
  Mouse().grab(window.at(document.row('a'))).dragTo(window.at(document.row('B'))).release().run();
  EXPECT_EQ(messages, QStringList("locked"));
  EXPECT_EQ(document.text(), "A[ab] B[c] ");
}

}
}
