// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupTreeView.h"

#include "QtModels/Editing/GroupEditorBase.h"
#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/Views/DropPoint.h"
#include "QtModels/Views/GroupNameDelegate.h"
#include "QtModels/Views/ProxyChain.h"
#include "QtModels/Views/SelectedRows.h"

#include <QtCore/QEvent>
#include <QtGui/QDropEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include <algorithm>

namespace Tarvik {
namespace {

constexpr int millisecondsToExpand = 600;
constexpr auto nameColumn = GroupItemModelBase::NameColumn;

/// Answers an event as its copy at another point was answered.
void answer(QDropEvent& event, const QDropEvent& copy)
{
  event.setDropAction(copy.dropAction());
  event.setAccepted(copy.isAccepted());
}

}

GroupTreeView::GroupTreeView(QWidget* parent) : QTreeView(parent)
{
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(EditKeyPressed);
  setItemDelegateForColumn(nameColumn, new GroupNameDelegate(this));
  setDragDropMode(DragDrop);
  setDefaultDropAction(Qt::MoveAction);
  setAutoExpandDelay(millisecondsToExpand);
  retranslate();
}

GroupTreeView::~GroupTreeView() = default;

const GroupItemModelBase* GroupTreeView::groupModel() const
{
  return ProxyChain::groupModelOf(model());
}

GroupEditorBase* GroupTreeView::editor() const
{
  return ProxyChain::editorOf(model());
}

QModelIndexList GroupTreeView::selectedGroupRows() const
{
  auto rows = SelectedRows::indexes(selectionModel());
  std::transform(rows.cbegin(), rows.cend(), rows.begin(), ProxyChain::toGroupModel);
  return rows;
}

bool GroupTreeView::deleteSelectedRows()
{
  auto* const rowEditor = editor();
  if (!rowEditor)
    return false;
  const auto rows = selectedGroupRows();
  return SelectedRows::of(selectionModel()).groups > 0 ? rowEditor->deleteGroups(rows)
                                                       : rowEditor->removeFromGroups(rows);
}

void GroupTreeView::renameGroup(const QModelIndex& index)
{
  const auto name = index.siblingAtColumn(nameColumn);
  if (!(name.flags() & Qt::ItemIsEditable))
    return;
  setCurrentIndex(name);
  scrollTo(name);
  edit(name);
}

const DropIndicator& GroupTreeView::dropIndicator() const
{
  return m_indicator;
}

void GroupTreeView::setModel(QAbstractItemModel* newModel)
{
  for (const auto& connection : m_modelConnections)
    disconnect(connection);
  m_modelConnections.clear();
  QTreeView::setModel(newModel);
  const auto follow = [&](auto signal) {
    if (newModel)
      m_modelConnections.push_back(
          connect(newModel, signal, this, &GroupTreeView::selectedRowsChanged));
  };
  follow(&QAbstractItemModel::rowsInserted);
  follow(&QAbstractItemModel::rowsRemoved);
  follow(&QAbstractItemModel::rowsMoved);
  follow(&QAbstractItemModel::layoutChanged);
  follow(&QAbstractItemModel::modelReset);
  emit selectedRowsChanged();
}

void GroupTreeView::selectionChanged(const QItemSelection& selected,
                                     const QItemSelection& deselected)
{
  QTreeView::selectionChanged(selected, deselected);
  emit selectedRowsChanged();
}

void GroupTreeView::keyPressEvent(QKeyEvent* event)
{
  if (event->matches(QKeySequence::Delete)) {
    deleteSelectedRows();
    event->accept();
    return;
  }
  if (event->key() == Qt::Key_F2) { // in any column
    renameGroup(currentIndex());
    event->accept();
    return;
  }
  QTreeView::keyPressEvent(event);
}

void GroupTreeView::dragMoveEvent(QDragMoveEvent* event)
{
  QDragMoveEvent moved(dropPoint(*this, *event), event->possibleActions(), event->mimeData(),
                       event->buttons(), event->modifiers());
  moved.setDropAction(event->dropAction());
  QTreeView::dragMoveEvent(&moved);
  showIndicator(indicatorFor(moved));
  answer(*event, moved);
}

void GroupTreeView::dragLeaveEvent(QDragLeaveEvent* event)
{
  QTreeView::dragLeaveEvent(event);
  showIndicator({});
}

void GroupTreeView::dropEvent(QDropEvent* event)
{
  QDropEvent moved(dropPoint(*this, *event), event->possibleActions(), event->mimeData(),
                   event->buttons(), event->modifiers());
  moved.setDropAction(event->dropAction());
  QTreeView::dropEvent(&moved);
  showIndicator({});
  answer(*event, moved);
}

void GroupTreeView::paintEvent(QPaintEvent* event)
{
  const auto isShown = showDropIndicator();
  setDropIndicatorShown(false); // Qt's own, which draws nearly the same for both kinds of drops
  QTreeView::paintEvent(event);
  setDropIndicatorShown(isShown);
  if (!isShown || m_indicator.shape == DropIndicator::Shape::None)
    return;
  QPainter painter(viewport());
  painter.setLayoutDirection(layoutDirection());
  m_indicator.paint(painter, palette());
}

void GroupTreeView::changeEvent(QEvent* event)
{
  if (event->type() == QEvent::LanguageChange)
    retranslate();
  QTreeView::changeEvent(event);
}

void GroupTreeView::showIndicator(const DropIndicator& indicator)
{
  if (m_indicator == indicator)
    return;
  m_indicator = indicator;
  viewport()->update();
}

/// Call it when the base class has found out whether the drop is possible.
DropIndicator GroupTreeView::indicatorFor(const QDropEvent& event) const
{
  const auto index = indexAt(event.position().toPoint()).siblingAtColumn(nameColumn);
  if (!event.isAccepted() || !index.isValid())
    return {};
  auto rect = visualRect(index);
  if (isRightToLeft())
    rect.setLeft(0);
  else
    rect.setRight(viewport()->width() - 1);
  switch (dropIndicatorPosition()) {
  case OnItem:
    return {DropIndicator::Shape::Frame, rect};
  case AboveItem:
    return {DropIndicator::Shape::Line, QRect(rect.left(), rect.top(), rect.width(), 0)};
  case BelowItem:
    return {DropIndicator::Shape::Line, QRect(rect.left(), rect.bottom() + 1, rect.width(), 0)};
  default:
    return {};
  }
}

/// Leaves a name alone that the application has set.
void GroupTreeView::retranslate()
{
  if (accessibleName() != m_accessibleName)
    return;
  m_accessibleName = tr("Groups");
  setAccessibleName(m_accessibleName);
}

}
