// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/QtModelsExport.h"

#include <QtCore/QString>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// An item model of a provider's groups, for tree views. It follows every change of the provider.
///
/// The model has its own copy of the lists, since views ask for rows as they were until they are
/// told about each step of a change. It shares the provider, which must therefore not own the
/// model.
template <class T>
class GroupItemModel : public GroupItemModelBase {
public:
  /// @param provider  whose groups are shown; not null
  /// @param parent    the owner of the model, or null
  explicit GroupItemModel(std::shared_ptr<TKGroupProvider<T>> provider, QObject* parent = nullptr);
  ~GroupItemModel() override;

  /// Whose groups are shown.
  const std::shared_ptr<TKGroupProvider<T>>& provider() const;

  /// The id of the group in the row of the index; invalid if there is no group.
  Identifier groupIdAt(const QModelIndex& index) const;

  /// The element in the row of the index, or null; valid until the model changes.
  const T* elementAt(const QModelIndex& index) const;

  /// The row of the first group with that id; invalid if there is none.
  QModelIndex indexOfGroup(const Identifier& groupId) const;

  RowKind kindOf(const QModelIndex& index) const override;

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
  /// A group as the views know it. Indexes of members point to it.
  struct Node {
    Identifier id;
    std::string name;
    std::vector<T> members;
    int row;
  };

  const Node* groupAt(const QModelIndex& index) const;
  void readProvider();

  std::shared_ptr<TKGroupProvider<T>> m_provider;
  std::vector<std::unique_ptr<Node>> m_groups;
  std::vector<T> m_ungrouped;
  GroupsSubscription<T> m_subscription;
};

template <class T>
GroupItemModel<T>::GroupItemModel(std::shared_ptr<TKGroupProvider<T>> provider, QObject* parent)
    : GroupItemModelBase(parent), m_provider(std::move(provider))
{
  readProvider();
  m_subscription = m_provider->subscribe([this](const GroupsChange<T>&) {
    beginResetModel();
    readProvider();
    endResetModel();
  });
}

template <class T>
GroupItemModel<T>::~GroupItemModel() = default;

template <class T>
void GroupItemModel<T>::readProvider()
{
  m_groups.clear();
  for (const auto& group : m_provider->getGroups()) {
    m_groups.push_back(
        std::make_unique<Node>(Node{group.getId(), group.getName(), group.getGroupMembers(),
                                    static_cast<int>(m_groups.size())}));
  }
  m_ungrouped = m_provider->ungroupedElements();
}

template <class T>
const std::shared_ptr<TKGroupProvider<T>>& GroupItemModel<T>::provider() const
{
  return m_provider;
}

/// The group in the row of the index, or null.
template <class T>
auto GroupItemModel<T>::groupAt(const QModelIndex& index) const -> const Node*
{
  const auto isGroup = kindOf(index) == RowKind::Group;
  return isGroup ? m_groups[static_cast<std::size_t>(index.row())].get() : nullptr;
}

template <class T>
Identifier GroupItemModel<T>::groupIdAt(const QModelIndex& index) const
{
  const auto* group = groupAt(index);
  return group ? group->id : Identifier::getInvalidId();
}

template <class T>
const T* GroupItemModel<T>::elementAt(const QModelIndex& index) const
{
  const auto row = static_cast<std::size_t>(index.row());
  switch (kindOf(index)) {
  case RowKind::Member:
    return &static_cast<const Node*>(index.constInternalPointer())->members[row];
  case RowKind::Ungrouped:
    return &m_ungrouped[row - m_groups.size()];
  default:
    return nullptr;
  }
}

template <class T>
QModelIndex GroupItemModel<T>::indexOfGroup(const Identifier& groupId) const
{
  const auto found = std::find_if(m_groups.begin(), m_groups.end(),
                                  [&](const auto& group) { return group->id == groupId; });
  return found != m_groups.end() ? index((*found)->row, NameColumn) : QModelIndex();
}

template <class T>
GroupItemModelBase::RowKind GroupItemModel<T>::kindOf(const QModelIndex& index) const
{
  if (!index.isValid() || index.model() != this)
    return RowKind::None;
  if (index.constInternalPointer())
    return RowKind::Member;
  const auto row = static_cast<std::size_t>(index.row());
  return row < m_groups.size() ? RowKind::Group : RowKind::Ungrouped;
}

template <class T>
QModelIndex GroupItemModel<T>::index(int row, int column, const QModelIndex& parent) const
{
  return hasIndex(row, column, parent) ? createIndex(row, column, groupAt(parent)) : QModelIndex();
}

template <class T>
QModelIndex GroupItemModel<T>::parent(const QModelIndex& child) const
{
  const auto* group = static_cast<const Node*>(child.constInternalPointer());
  return group ? createIndex(group->row, NameColumn) : QModelIndex();
}

template <class T>
int GroupItemModel<T>::rowCount(const QModelIndex& parent) const
{
  if (!parent.isValid())
    return static_cast<int>(m_groups.size() + m_ungrouped.size());
  const auto* group = parent.column() == NameColumn ? groupAt(parent) : nullptr;
  return group ? static_cast<int>(group->members.size()) : 0;
}

template <class T>
int GroupItemModel<T>::columnCount(const QModelIndex&) const
{
  return ColumnCount;
}

template <class T>
QVariant GroupItemModel<T>::data(const QModelIndex& index, int role) const
{
  const auto* group = groupAt(index);
  const auto* element = elementAt(index);
  if (!group && !element)
    return {};
  if (role == KindRole)
    return QVariant::fromValue(kindOf(index));
  if (role == IdentifierRole)
    return QString::fromStdString(group ? group->id.toString() : element->toString());
  const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
  if (isText && index.column() == NameColumn)
    return QString::fromStdString(group ? group->name : m_provider->getElementName(*element));
  if (group && (role == CountRole || (role == Qt::DisplayRole && index.column() == CountColumn)))
    return static_cast<int>(group->members.size());
  return {};
}

extern template class TKM_QTMODELS_DECLARE GroupItemModel<Identifier>;
extern template class TKM_QTMODELS_DECLARE GroupItemModel<GUIdentifier>;

}
