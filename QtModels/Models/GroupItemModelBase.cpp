// SPDX-License-Identifier: MIT
#include "QtModels/Models/GroupItemModelBase.h"

#include "QtModels/Editing/GroupDragData.h"
#include "QtModels/Editing/GroupEditorBase.h"

namespace Tarvik {

GroupItemModelBase::GroupItemModelBase(QObject* parent) : QAbstractItemModel(parent) {}

GroupItemModelBase::~GroupItemModelBase() = default;

GroupEditorBase* GroupItemModelBase::editor() const
{
  return m_editor;
}

void GroupItemModelBase::setEditor(GroupEditorBase* editor)
{
  m_editor = editor;
}

bool GroupItemModelBase::setData(const QModelIndex& index, const QVariant& value, int role)
{
  const bool isName = role == Qt::EditRole && value.isValid(); // some views clear items they drag
  if (!isName || !(flags(index) & Qt::ItemIsEditable))
    return false;
  const auto name = value.toString();
  return name == index.data(Qt::EditRole).toString() || m_editor->renameGroup(index, name);
}

Qt::ItemFlags GroupItemModelBase::flags(const QModelIndex& index) const
{
  const auto kind = kindOf(index);
  auto flags = QAbstractItemModel::flags(index);
  if (kind == RowKind::Member || kind == RowKind::Ungrouped)
    flags |= Qt::ItemNeverHasChildren;
  if (!m_editor)
    return flags;
  if (kind == RowKind::None)
    return flags | Qt::ItemIsDropEnabled; // the space below the rows
  flags |= Qt::ItemIsDragEnabled;
  if (kind == RowKind::Group)
    flags |= Qt::ItemIsDropEnabled;
  if (kind == RowKind::Group && index.column() == NameColumn)
    flags |= Qt::ItemIsEditable;
  return flags;
}

Qt::DropActions GroupItemModelBase::supportedDropActions() const
{
  return m_editor ? Qt::MoveAction : Qt::IgnoreAction;
}

QStringList GroupItemModelBase::mimeTypes() const
{
  return {GroupDragData::mimeType()};
}

QMimeData* GroupItemModelBase::mimeData(const QModelIndexList& indexes) const
{
  return m_editor ? m_editor->dragData(indexes) : nullptr;
}

bool GroupItemModelBase::canDropMimeData(
    const QMimeData* data, Qt::DropAction action, int row, int, const QModelIndex& parent) const
{
  return data && m_editor && action == Qt::MoveAction && m_editor->canDrop(*data, row, parent);
}

bool GroupItemModelBase::dropMimeData(
    const QMimeData* data, Qt::DropAction action, int row, int column, const QModelIndex& parent)
{
  return canDropMimeData(data, action, row, column, parent) && m_editor->drop(*data, row, parent);
}

}
