// SPDX-License-Identifier: MIT
#include "QtModels/Models/GroupItemModelBase.h"

#include "QtModels/Editing/GroupDragData.h"
#include "QtModels/Editing/GroupEditorBase.h"
#include "QtModels/Support/CurrentException.h"

#include <utility>

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

void GroupItemModelBase::setRowData(RowData rowData)
{
  m_rowData = std::move(rowData);
  allElementsChanged();
}

void GroupItemModelBase::allElementsChanged()
{
  const auto tellRowsOf = [this](const QModelIndex& parent) {
    const int rows = rowCount(parent);
    if (rows > 0)
      Q_EMIT dataChanged(index(0, 0, parent), index(rows - 1, columnCount() - 1, parent));
    return rows;
  };
  const int topRows = tellRowsOf({});
  for (int row = 0; row < topRows; ++row)
    tellRowsOf(index(row, 0));
}

void GroupItemModelBase::setCountColumnVisible(bool isVisible)
{
  if (isVisible == m_isCountColumnVisible)
    return;
  beginResetModel();
  m_isCountColumnVisible = isVisible;
  endResetModel();
}

int GroupItemModelBase::columnCount(const QModelIndex&) const
{
  return m_isCountColumnVisible ? ColumnCount : CountColumn;
}

QVariant GroupItemModelBase::headerData(int section, Qt::Orientation orientation, int role) const
{
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return QAbstractItemModel::headerData(section, orientation, role);
  switch (section) {
  case NameColumn:
    return tr("Name");
  case CountColumn:
    return tr("Members");
  default:
    return {};
  }
}

QHash<int, QByteArray> GroupItemModelBase::roleNames() const
{
  auto names = QAbstractItemModel::roleNames();
  names.insert(KindRole, "kind");
  names.insert(IdentifierRole, "identifier");
  names.insert(CountRole, "count");
  names.insert(NameRole, "name");
  return names;
}

QVariant GroupItemModelBase::applicationData(const QModelIndex& index, int role) const
{
  return m_rowData && index.isValid() ? m_rowData(index, role) : QVariant();
}

void GroupItemModelBase::tellNames(int first, int last)
{
  tellRows(first, last, {Qt::DisplayRole, Qt::EditRole, Qt::ToolTipRole, NameRole});
}

void GroupItemModelBase::tellCounts(int first, int last)
{
  tellRows(first, last, {Qt::DisplayRole, CountRole});
}

void GroupItemModelBase::tellRows(int first, int last, const QList<int>& roles)
{
  Q_EMIT dataChanged(index(first, NameColumn), index(last, columnCount() - 1), roles);
}

void GroupItemModelBase::tellFailure(const std::exception_ptr& exception) const noexcept
{
  try {
    try {
      std::rethrow_exception(exception);
    } catch (...) {
      Q_EMIT failed(
          tr("A group or an element cannot be shown: %1").arg(messageOfCurrentException()));
    }
  } catch (...) { // NOLINT(bugprone-empty-catch): there is nothing left that could be told
  }
}

}
