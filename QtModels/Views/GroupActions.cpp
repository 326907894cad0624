// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupActions.h"

#include "QtModels/Editing/GroupEditorBase.h"
#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/Views/GroupChooser.h"
#include "QtModels/Views/GroupTreeView.h"
#include "QtModels/Views/ProxyChain.h"
#include "QtModels/Views/SelectedRows.h"

#include <QtCore/QEvent>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtGui/QKeySequence>

namespace Tarvik {
namespace {

using RowKind = GroupItemModelBase::RowKind;

/// Indexes that stay with their rows while a dialog is open.
QList<QPersistentModelIndex> persistent(const QModelIndexList& rows)
{
  return {rows.begin(), rows.end()};
}

QModelIndexList present(const QList<QPersistentModelIndex>& rows)
{
  return {rows.begin(), rows.end()};
}

}

GroupActions::GroupActions(GroupTreeView* view)
    : QObject(view), m_view(view), m_update(new QTimer(this))
{
  add(NewGroup, &GroupActions::newGroup);
  add(MoveToGroup, &GroupActions::moveToGroup);
  add(RemoveFromGroup, &GroupActions::removeFromGroup);
  add(RenameGroup, &GroupActions::renameGroup);
  add(DeleteGroups, &GroupActions::deleteGroups);
  add(SortGroups, &GroupActions::sortGroups);
  add(MoveUp, &GroupActions::moveUp);
  add(MoveDown, &GroupActions::moveDown);

  action(NewGroup)->setShortcut(Qt::CTRL | Qt::Key_G);
  action(MoveToGroup)->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_G);
  action(RemoveFromGroup)->setShortcut(QKeySequence::Delete); // the two are never both enabled
  action(RenameGroup)->setShortcut(Qt::Key_F2);
  action(DeleteGroups)->setShortcut(QKeySequence::Delete);
  action(MoveUp)->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Up);
  action(MoveDown)->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Down);

  m_update->setSingleShot(true);
  connect(m_update, &QTimer::timeout, this, &GroupActions::update);
  connect(view, &GroupTreeView::selectedRowsChanged, m_update, qOverload<>(&QTimer::start));
  view->installEventFilter(this);
  retranslate();
  update();
}

GroupActions::~GroupActions() = default;

QAction* GroupActions::action(Action which) const
{
  return m_actions.at(static_cast<std::size_t>(which));
}

QList<QAction*> GroupActions::actions() const
{
  return {m_actions.begin(), m_actions.end()};
}

void GroupActions::add(Action which, void (GroupActions::*slot)())
{
  auto* action = new QAction(m_view);
  action->setShortcutContext(Qt::WidgetShortcut); // Delete is for the text while a name is edited
  connect(action, &QAction::triggered, this, slot);
  m_view->addAction(action);
  m_actions.at(static_cast<std::size_t>(which)) = action;
}

bool GroupActions::eventFilter(QObject* object, QEvent* event)
{
  if (object == m_view && event->type() == QEvent::LanguageChange)
    retranslate();
  return QObject::eventFilter(object, event);
}

void GroupActions::retranslate() const
{
  action(NewGroup)->setText(tr("&New Group from Selection"));
  action(MoveToGroup)->setText(tr("&Move to Group…"));
  action(RemoveFromGroup)->setText(tr("&Remove from Group"));
  action(RenameGroup)->setText(tr("R&ename"));
  action(DeleteGroups)->setText(tr("&Delete"));
  action(SortGroups)->setText(tr("&Sort Groups"));
  action(MoveUp)->setText(tr("Move &Up"));
  action(MoveDown)->setText(tr("Move Do&wn"));
}

void GroupActions::update()
{
  const bool canEdit = m_view->editor() != nullptr;
  const auto rows = canEdit ? SelectedRows::of(m_view->selectionModel()) : SelectedRows();
  const bool hasElements = rows.members + rows.ungrouped > 0;
  const bool hasGroups =
      canEdit && m_view->groupModel()->kindOf(m_view->groupModel()->index(0, 0)) == RowKind::Group;

  action(NewGroup)->setEnabled(canEdit);
  action(MoveToGroup)->setEnabled(hasGroups && hasElements && rows.groups == 0);
  action(RemoveFromGroup)->setEnabled(rows.members > 0 && rows.groups == 0);
  action(RenameGroup)->setEnabled(rows.groups == 1 && !hasElements);
  action(DeleteGroups)->setEnabled(rows.groups > 0);
  action(SortGroups)->setEnabled(hasGroups);
  action(MoveUp)->setEnabled(neighbour(rows, Direction::Up).isValid());
  action(MoveDown)->setEnabled(neighbour(rows, Direction::Down).isValid());
}

void GroupActions::newGroup()
{
  if (auto* editor = m_view->editor()) {
    const auto created = editor->createGroup(m_view->selectedGroupRows());
    m_view->renameGroup(ProxyChain::fromGroupModel(created, m_view->model()));
  }
}

void GroupActions::moveToGroup()
{
  if (!m_view->editor())
    return;
  auto* chooser = new GroupChooser(*m_view->groupModel(), m_view);
  chooser->setAttribute(Qt::WA_DeleteOnClose);
  connect(chooser, &QDialog::accepted, this,
          [this, chooser, rows = persistent(m_view->selectedGroupRows())] {
            if (auto* editor = m_view->editor())
              editor->addToGroup(present(rows), chooser->chosenGroup());
          });
  chooser->open();
}

void GroupActions::removeFromGroup()
{
  if (auto* editor = m_view->editor())
    editor->removeFromGroups(m_view->selectedGroupRows());
}

void GroupActions::renameGroup()
{
  const auto rows =
      m_view->selectionModel() ? m_view->selectionModel()->selectedRows() : QModelIndexList();
  if (rows.size() == 1)
    m_view->renameGroup(rows.front());
}

void GroupActions::deleteGroups()
{
  if (auto* editor = m_view->editor())
    editor->deleteGroups(m_view->selectedGroupRows());
}

void GroupActions::sortGroups()
{
  if (auto* editor = m_view->editor())
    editor->sortGroups();
}

void GroupActions::moveUp()
{
  move(Direction::Up);
}

void GroupActions::moveDown()
{
  move(Direction::Down);
}

void GroupActions::move(Direction direction)
{
  auto* editor = m_view->editor();
  const auto target =
      editor ? neighbour(SelectedRows::of(m_view->selectionModel()), direction) : QModelIndex();
  if (!target.isValid())
    return;
  editor->moveBeside(m_view->selectedGroupRows(), ProxyChain::toGroupModel(target),
                     direction == Direction::Up ? Side::Before : Side::After);
}

/// The row of the same kind that is next to the selected ones in the view; invalid if there is
/// none, or if these are not of one kind below one parent.
QModelIndex GroupActions::neighbour(const SelectedRows& rows, Direction direction) const
{
  if (!rows.areSiblingsOfOneKind())
    return {};
  const auto& edge = direction == Direction::Up ? rows.first : rows.last;
  const auto next = edge.siblingAtRow(edge.row() + (direction == Direction::Up ? -1 : 1));
  const auto kindOf = [this](const QModelIndex& row) {
    return m_view->groupModel()->kindOf(ProxyChain::toGroupModel(row));
  };
  return kindOf(next) == kindOf(edge) ? next : QModelIndex();
}

}
