// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupTreeView.h"

#include "QtModels/Support/ShoutingTranslator.h"
#include "QtModels/Support/ShownView.h"

#include <QtCore/QMimeData>
#include <QtCore/QSortFilterProxyModel>
#include <QtGui/QDropEvent>
#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace Tarvik {
namespace {

using Shape = DropIndicator::Shape;

enum class Part { Top, Middle, Bottom };

QPoint pointIn(const QRect& rect, Part part)
{
  const auto y = part == Part::Top      ? rect.top() + 1
                 : part == Part::Bottom ? rect.bottom() - 1
                                        : rect.center().y();
  return {rect.left() + 5, y};
}

/// What a mouse that drags rows would do to a view, without a mouse.
class Dragging {
public:
  Dragging(GroupTreeView& view, const QModelIndexList& rows)
      : m_view(view), m_data(view.model()->mimeData(rows))
  {
    QDragEnterEvent event(QPoint(1, 1), Qt::MoveAction, m_data.get(), Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
  }

  /// @return whether the view would accept a drop there
  bool moveTo(const QPoint& point)
  {
    QDragMoveEvent event(point, Qt::MoveAction, m_data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_view.viewport(), &event);
    return event.isAccepted();
  }

  bool moveTo(const QModelIndex& row, Part part)
  {
    return moveTo(pointIn(m_view.visualRect(row), part));
  }

  void leave()
  {
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(m_view.viewport(), &event);
  }

  bool dropOn(const QModelIndex& row, Part part)
  {
    return dropOn(pointIn(m_view.visualRect(row), part));
  }

  bool dropOn(const QPoint& point)
  {
    moveTo(point);
    QDropEvent event(point, Qt::MoveAction, m_data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_view.viewport(), &event);
    return event.isAccepted();
  }

private:
  GroupTreeView& m_view;
  std::unique_ptr<QMimeData> m_data;
};

TEST(GroupTreeViewTest, DeletesSelectedGroupsWithTheKeyDelete)
{
  ShownView shown("A[a] B[b] c");
  shown.select("Bb");
  QTest::keyClick(&shown.view, Qt::Key_Delete);
  EXPECT_EQ(shown.document.text(), "A[a] bc");
  EXPECT_EQ(shown.document.history.entries().size(), 1U);
}

TEST(GroupTreeViewTest, TakesSelectedMembersOutOfTheirGroupsWithTheKeyDelete)
{
  ShownView shown("A[ab] B[c] d");
  shown.select("acd");
  QTest::keyClick(&shown.view, Qt::Key_Delete);
  EXPECT_EQ(shown.document.text(), "A[b] B[] acd");
  EXPECT_EQ(shown.document.history.entries().size(), 1U);
}

TEST(GroupTreeViewTest, LeavesTheMembersWhenTheirGroupCannotBeDeleted)
{
  ShownView shown("A[] B[b] ");
  int requests = 0;
  new GroupEditor<Identifier>(shown.document.model, [&](GroupRequest<Identifier>) -> bool {
    ++requests;
    throw std::runtime_error("the document is locked");
  });
  shown.select("Ab");
  QTest::keyClick(&shown.view, Qt::Key_Delete);
  EXPECT_EQ(requests, 1);
}

TEST(GroupTreeViewTest, RenamesTheCurrentGroupWithF2FromAnyColumn)
{
  ShownView shown("A[] B[] ");
  shown.view.setCurrentIndex(shown.row('B').siblingAtColumn(1));
  QTest::keyClick(&shown.view, Qt::Key_F2);
  ASSERT_NE(shown.nameEdit(), nullptr);
  EXPECT_EQ(shown.nameEdit()->selectedText(), "B");
}

TEST(GroupTreeViewTest, OffersNoEditorForElements)
{
  ShownView shown("A[a] ");
  shown.view.setCurrentIndex(shown.row('a'));
  QTest::keyClick(&shown.view, Qt::Key_F2);
  EXPECT_EQ(shown.nameEdit(), nullptr);
}

TEST(GroupTreeViewTest, FindsARowByTheFirstLetterThatIsTyped)
{
  ShownView shown("A[a] B[x] c");
  QTest::keyClick(&shown.view, Qt::Key_X);
  EXPECT_EQ(shown.view.currentIndex(), shown.row('x'));
  EXPECT_EQ(shown.nameEdit(), nullptr);
}

TEST(GroupTreeViewTest, SelectsNoRowsWhenAGroupIsExpanded)
{
  ShownView shown("A[ab] B[cd] e");
  shown.view.collapseAll();
  shown.select("B");
  auto* viewport = shown.view.viewport();
  const auto rowA = shown.view.visualRect(shown.row('A'));
  QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier,
                    QPoint(rowA.left() / 2, rowA.center().y()));
  EXPECT_TRUE(shown.view.isExpanded(shown.row('A')));
  EXPECT_EQ(shown.selected(), "B");

  QTest::keyClick(&shown.view, Qt::Key_Right);
  EXPECT_TRUE(shown.view.isExpanded(shown.row('B')));
  EXPECT_EQ(shown.selected(), "B");

  shown.view.collapseAll();
  QTest::keyClick(&shown.view, Qt::Key_Asterisk);
  shown.view.expandAll();
  EXPECT_EQ(shown.selected(), "B");
}

TEST(GroupTreeViewTest, ExpandsAGroupOnTheSideWhereItsRowBegins)
{
  ShownView shown("A[ab] B[cd] e");
  shown.view.collapseAll();
  shown.view.setLayoutDirection(Qt::RightToLeft);
  QCoreApplication::processEvents();

  auto* const viewport = shown.view.viewport();
  const auto rowA = shown.view.visualRect(shown.row('A'));
  QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier,
                    QPoint((rowA.right() + viewport->width()) / 2, rowA.center().y()));
  EXPECT_TRUE(shown.view.isExpanded(shown.row('A')));

  shown.select("B");
  QTest::keyClick(&shown.view, Qt::Key_Left);
  EXPECT_TRUE(shown.view.isExpanded(shown.row('B')));
}

TEST(GroupTreeViewTest, FramesTheGroupIntoWhichElementsWouldGo)
{
  ShownView shown("A[ab] B[] ");
  Dragging dragging(shown.view, {shown.row('a')});
  EXPECT_TRUE(dragging.moveTo(shown.row('B'), Part::Middle));
  const auto& indicator = shown.view.dropIndicator();
  EXPECT_EQ(indicator.shape, Shape::Frame);
  EXPECT_EQ(indicator.rect.top(), shown.view.visualRect(shown.row('B')).top());
  EXPECT_EQ(indicator.rect.bottom(), shown.view.visualRect(shown.row('B')).bottom());
}

TEST(GroupTreeViewTest, DrawsALineWhereElementsWouldGoBetweenMembers)
{
  ShownView shown("A[ab] B[] c");
  Dragging dragging(shown.view, {shown.row('c')});
  EXPECT_TRUE(dragging.moveTo(shown.row('b'), Part::Top));
  const auto above = shown.view.dropIndicator();
  EXPECT_EQ(above.shape, Shape::Line);
  EXPECT_EQ(above.rect.top(), shown.view.visualRect(shown.row('b')).top());

  EXPECT_TRUE(dragging.moveTo(shown.row('a'), Part::Bottom));
  EXPECT_EQ(shown.view.dropIndicator(), above) << "the same place, seen from the row above";
}

TEST(GroupTreeViewTest, ShowsNoIndicatorWhereNothingCanBeDropped)
{
  ShownView shown("A[ab] B[] c");
  Dragging dragging(shown.view, {shown.row('A')});
  EXPECT_FALSE(dragging.moveTo(shown.row('b'), Part::Top));
  EXPECT_EQ(shown.view.dropIndicator().shape, Shape::None);
}

TEST(GroupTreeViewTest, RemovesTheIndicatorWhenTheDragEnds)
{
  ShownView shown("A[ab] B[] ");
  Dragging dragging(shown.view, {shown.row('a')});
  dragging.moveTo(shown.row('B'), Part::Middle);
  dragging.leave();
  EXPECT_EQ(shown.view.dropIndicator().shape, Shape::None);

  dragging.dropOn(shown.row('B'), Part::Middle);
  EXPECT_EQ(shown.view.dropIndicator().shape, Shape::None);
}

TEST(GroupTreeViewTest, DrawsFrameAndLineDifferently)
{
  ShownView shown("A[ab] B[] ");
  const auto without = shown.view.viewport()->grab().toImage();
  Dragging dragging(shown.view, {shown.row('a')});
  dragging.moveTo(shown.row('B'), Part::Middle);
  const auto withFrame = shown.view.viewport()->grab().toImage();
  dragging.moveTo(shown.row('b'), Part::Top);
  const auto withLine = shown.view.viewport()->grab().toImage();

  const auto inRowB = shown.view.visualRect(shown.row('B')).center() + QPoint(50, 0);
  EXPECT_NE(withFrame.pixel(inRowB), without.pixel(inRowB)) << "the frame is filled";
  EXPECT_EQ(withLine.pixel(inRowB), without.pixel(inRowB));
  const QPoint onLine(250, shown.view.visualRect(shown.row('b')).top());
  EXPECT_NE(withLine.pixel(onLine), without.pixel(onLine));
  EXPECT_EQ(withFrame.pixel(onLine), without.pixel(onLine));
}

TEST(GroupTreeViewTest, ExtendsTheIndicatorFromTheRowToTheEndOfTheView)
{
  ShownView shown("A[ab] B[] ");
  Dragging dragging(shown.view, {shown.row('a')});
  const auto rowB = [&] { return shown.view.visualRect(shown.row('B')); };
  const auto indicator = [&] {
    dragging.moveTo(shown.row('B'), Part::Middle);
    return shown.view.dropIndicator().rect;
  };

  EXPECT_EQ(indicator().left(), rowB().left());
  EXPECT_EQ(indicator().right(), shown.view.viewport()->width() - 1);

  shown.view.setLayoutDirection(Qt::RightToLeft);
  EXPECT_EQ(indicator().left(), 0);
  EXPECT_EQ(indicator().right(), rowB().right());
}

TEST(GroupTreeViewTest, DrawsTheBeginningOfALineWhereTheRowBegins)
{
  constexpr int radius = 4;
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    ShownView shown("A[ab] B[] c");
    shown.view.setLayoutDirection(direction);
    QCoreApplication::processEvents();
    const auto without = shown.view.viewport()->grab().toImage();
    Dragging dragging(shown.view, {shown.row('c')});
    dragging.moveTo(shown.row('b'), Part::Top);
    const auto with = shown.view.viewport()->grab().toImage();

    const auto row = shown.view.visualRect(shown.row('b'));
    const auto isDrawn = [&](int x) { // above the line, where only its circle is
      const QPoint place(x, row.top() - 2);
      return with.pixel(place) != without.pixel(place);
    };
    const auto isMirrored = direction == Qt::RightToLeft;
    EXPECT_TRUE(isDrawn(isMirrored ? row.right() - radius : row.left() + radius)) << direction;
    EXPECT_FALSE(isDrawn(isMirrored ? radius : without.width() - radius)) << direction;
  }
}

TEST(GroupTreeViewTest, DropsRowsWhereTheIndicatorIs)
{
  ShownView shown("A[ab] B[] c");
  EXPECT_TRUE(Dragging(shown.view, {shown.row('c')}).dropOn(shown.row('b'), Part::Top));
  EXPECT_EQ(shown.document.text(), "A[acb] B[] ");
  shown.view.expandAll();
  EXPECT_TRUE(Dragging(shown.view, {shown.row('b')}).dropOn(shown.row('B'), Part::Middle));
  EXPECT_EQ(shown.document.text(), "A[ac] B[b] ");
  EXPECT_TRUE(Dragging(shown.view, {shown.row('B')}).dropOn(shown.row('A'), Part::Top));
  EXPECT_EQ(shown.document.text(), "B[b] A[ac] ");
}

TEST(GroupTreeViewTest, PutsAGroupOnTheNearerSideOfAGroup)
{
  ShownView shown("A[] B[] C[] ");
  Dragging dragging(shown.view, {shown.row('A')});
  const auto rowC = shown.view.visualRect(shown.row('C'));
  EXPECT_TRUE(dragging.moveTo(rowC.center() - QPoint(0, 1)));
  EXPECT_EQ(shown.view.dropIndicator().shape, Shape::Line);
  EXPECT_EQ(shown.view.dropIndicator().rect.top(), rowC.top());
  EXPECT_TRUE(dragging.moveTo(rowC.center() + QPoint(0, 1)));
  EXPECT_EQ(shown.view.dropIndicator().rect.top(), rowC.bottom() + 1);
  EXPECT_TRUE(dragging.dropOn(rowC.center() - QPoint(0, 1)));
  EXPECT_EQ(shown.document.text(), "B[] A[] C[] ");
}

TEST(GroupTreeViewTest, PutsElementsIntoAGroupAlsoAtTheEdgesOfItsRow)
{
  ShownView shown("A[a] B[] C[] ");
  Dragging dragging(shown.view, {shown.row('a')});
  for (const auto part : {Part::Top, Part::Bottom}) {
    EXPECT_TRUE(dragging.moveTo(shown.row('B'), part));
    EXPECT_EQ(shown.view.dropIndicator().shape, Shape::Frame);
  }
  EXPECT_TRUE(dragging.dropOn(shown.row('B'), Part::Top));
  EXPECT_EQ(shown.document.text(), "A[] B[a] C[] ");
}

TEST(GroupTreeViewTest, WorksWithAFilterBetweenViewAndModel)
{
  ShownView shown("A[ab] B[b] c");
  QSortFilterProxyModel filter;
  filter.setSourceModel(&shown.document.model);
  filter.setRecursiveFilteringEnabled(true);
  filter.setFilterRegularExpression("B|c");
  shown.view.setModel(&filter);
  ASSERT_EQ(filter.rowCount(), 2);

  EXPECT_TRUE(Dragging(shown.view, {shown.row('c')}).dropOn(shown.row('B'), Part::Middle));
  EXPECT_EQ(shown.document.text(), "A[ab] B[bc] ");
  shown.select("B");
  QTest::keyClick(&shown.view, Qt::Key_Delete);
  EXPECT_EQ(shown.document.text(), "A[ab] c");
}

TEST(GroupTreeViewTest, TellsWhenOtherRowsAreSelectedOrRowsChange)
{
  ShownView shown("A[ab] B[] ");
  QSignalSpy changes(&shown.view, &GroupTreeView::selectedRowsChanged);
  shown.select("A");
  EXPECT_GE(changes.count(), 1);
  changes.clear();
  shown.document.editor.sortGroups();
  shown.document.editor.createGroup({});
  EXPECT_GE(changes.count(), 1);
  shown.view.setModel(nullptr);
  changes.clear();
  shown.document.editor.createGroup({});
  EXPECT_EQ(changes.count(), 0) << "the model is no longer shown";
}

TEST(GroupTreeViewTest, DoesNothingWithoutAModelOfGroups)
{
  GroupTreeView view;
  EXPECT_EQ(view.groupModel(), nullptr);
  EXPECT_EQ(view.editor(), nullptr);
  EXPECT_TRUE(view.selectedGroupRows().isEmpty());
  EXPECT_FALSE(view.deleteSelectedRows());
  QTest::keyClick(&view, Qt::Key_F2);
  QTest::keyClick(&view, Qt::Key_Delete);
}

TEST(GroupTreeViewTest, HasAnAccessibleNameInTheLanguageOfTheUser)
{
  GroupTreeView view;
  GroupTreeView named;
  named.setAccessibleName("Continents");
  EXPECT_EQ(view.accessibleName(), "Groups");
  const ShoutingTranslator otherLanguage;
  EXPECT_EQ(view.accessibleName(), "GROUPS");
  EXPECT_EQ(named.accessibleName(), "Continents");
}

}
}
