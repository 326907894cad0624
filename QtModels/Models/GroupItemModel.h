// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "QtModels/Models/ChangeSteps.h"
#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/Models/LayoutUpdate.h"
#include "QtModels/Models/ShownGroups.h"
#include "QtModels/Models/StepwiseUpdate.h"
#include "QtModels/Models/Travellers.h"
#include "QtModels/QtModelsExport.h"

#include <QtCore/QString>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

namespace Tarvik {

/// An item model of a provider's groups, for tree views. It follows every change of the provider.
///
/// Views are told what changes, and nothing else: rows that come, leave or move, and names and
/// counts. Persistent indexes follow their groups and elements, also from one group to another, so
/// views keep what is selected, current and expanded. A change of more than maximumSteps(), and one
/// that moves several runs of elements from one list to another, is told as one change of the
/// layout, in which rows may come and leave as well. If memory runs out on the way, the model is
/// reset to what the provider has. If even that fails, the model is empty until the next change, or
/// until reload() succeeds.
///
/// The model has its own copy of the lists, since views ask for rows as they were until they are
/// told about each step of a change. It shares the provider, which must therefore not own the
/// model. Names of elements are asked for each time: see elementsChanged().
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

  /// Tells views that these elements may look different: other names, other icons. The provider
  /// knows nothing of that. Looks at all elements; for more than a few, allElementsChanged() is
  /// told instead.
  void elementsChanged(const std::vector<T>& elements);

  /// Resets the model to what the provider has. Only needed after memory has run out. When it
  /// throws, the model is empty.
  void reload();

  RowKind kindOf(const QModelIndex& index) const override;

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;

  /// The display and the edit role, and the tool tip, are the name. What throws on the way is told
  /// by failed(), and there is no data then.
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
  friend class ShownLists::LayoutUpdate<T>;
  friend class ShownLists::StepwiseUpdate<T>;

  using Group = ShownLists::ShownGroup<T>;

  GroupsSubscription<T> subscribe();

  const Group* groupAt(const QModelIndex& index) const;
  QVariant ownData(const QModelIndex& index, int role) const;
  void follow(const GroupsChange<T>& change);
  void followSteps(const GroupsChange<T>& change);
  void followAtOnce(const GroupsChange<T>& change);
  void tellElements(const std::vector<T>& changed, const std::vector<T>& list, const Group* group);

  std::shared_ptr<TKGroupProvider<T>> m_provider;
  ShownLists::ShownGroups<T> m_shown;
  bool m_isUpToDate = true; ///< false when what the provider has could not be read
  GroupsSubscription<T> m_subscription;
};

template <class T>
GroupItemModel<T>::GroupItemModel(std::shared_ptr<TKGroupProvider<T>> provider, QObject* parent)
    : GroupItemModelBase(parent),
      m_provider(std::move(provider)),
      m_shown(ShownLists::shown(*m_provider)),
      m_subscription(subscribe())
{}

template <class T>
GroupItemModel<T>::~GroupItemModel() = default;

template <class T>
const std::shared_ptr<TKGroupProvider<T>>& GroupItemModel<T>::provider() const
{
  return m_provider;
}

template <class T>
GroupsSubscription<T> GroupItemModel<T>::subscribe()
{
  return m_provider->subscribe([this](const auto& change) { follow(change); });
}

template <class T>
void GroupItemModel<T>::reload()
{
  ShownLists::ShownGroups<T> shown;
  try {
    // anew, since changes that wait to be told are in what the provider has already
    m_subscription = subscribe();
    shown = ShownLists::shown(*m_provider);
  } catch (...) {
    beginResetModel();
    m_shown = {};
    m_isUpToDate = false;
    endResetModel();
    throw;
  }
  beginResetModel();
  std::swap(m_shown, shown);
  m_isUpToDate = true;
  endResetModel();
}

template <class T>
void GroupItemModel<T>::follow(const GroupsChange<T>& change)
{
  if (!m_isUpToDate)
    return reload();
  try {
    const auto steps = change.groups.size() + change.ungrouped.size();
    if (steps <= static_cast<std::size_t>((std::max)(maximumSteps(), 0)))
      followSteps(change);
    else
      followAtOnce(change);
  } catch (...) {
    reload();
  }
}

/// Tells each step, unless elements go from one list to another in several runs.
template <class T>
void GroupItemModel<T>::followSteps(const GroupsChange<T>& change)
{
  const ShownLists::Travellers<T> travellers(change);
  const auto passage = travellers.onlyPassage();
  if (!passage && travellers.any())
    return followAtOnce(change);

  ShownLists::StepwiseUpdate<T> update(*this);
  if (passage)
    update.pass(*passage);
  else
    ShownLists::doSteps(change, update);
  for (const int row : ShownLists::rowsWithOtherCounts(change))
    tellCounts(row, row);
}

template <class T>
void GroupItemModel<T>::followAtOnce(const GroupsChange<T>& change)
{
  ShownLists::LayoutUpdate<T> update(*this);
  ShownLists::doSteps(change, update);
  update.finish();
  const auto renamed = ShownLists::renamedRows(change);
  if (!renamed.empty())
    tellNames(renamed.front(), renamed.back());
  const auto counted = ShownLists::rowsWithOtherCounts(change);
  if (!counted.empty())
    tellCounts(counted.front(), counted.back());
}

/// The group in the row of the index, or null.
template <class T>
auto GroupItemModel<T>::groupAt(const QModelIndex& index) const -> const Group*
{
  const auto isGroup = kindOf(index) == RowKind::Group;
  return isGroup ? m_shown.groups[static_cast<std::size_t>(index.row())].get() : nullptr;
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
    return &static_cast<const Group*>(index.constInternalPointer())->members[row];
  case RowKind::Ungrouped:
    return &m_shown.ungrouped[row - m_shown.groups.size()];
  default:
    return nullptr;
  }
}

template <class T>
QModelIndex GroupItemModel<T>::indexOfGroup(const Identifier& groupId) const
{
  const auto& groups = m_shown.groups;
  const auto found = std::find_if(groups.begin(), groups.end(),
                                  [&](const auto& group) { return group->id == groupId; });
  return found != groups.end() ? index((*found)->row, NameColumn) : QModelIndex();
}

template <class T>
void GroupItemModel<T>::elementsChanged(const std::vector<T>& elements)
{
  constexpr std::size_t few = 16; // each is compared with all members
  if (elements.size() > few)
    return allElementsChanged();
  for (const auto& group : m_shown.groups)
    tellElements(elements, group->members, group.get());
  tellElements(elements, m_shown.ungrouped, nullptr);
}

/// @param group  whose members the list has; null for the ungrouped elements
template <class T>
void GroupItemModel<T>::tellElements(const std::vector<T>& changed,
                                     const std::vector<T>& list,
                                     const Group* group)
{
  const auto parent = group ? index(group->row, NameColumn) : QModelIndex();
  const auto first = group ? 0 : m_shown.groups.size();
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (std::find(changed.begin(), changed.end(), list[i]) == changed.end())
      continue;
    const auto row = static_cast<int>(first + i);
    Q_EMIT dataChanged(index(row, NameColumn, parent), index(row, columnCount() - 1, parent));
  }
}

template <class T>
GroupItemModelBase::RowKind GroupItemModel<T>::kindOf(const QModelIndex& index) const
{
  if (!index.isValid() || index.model() != this)
    return RowKind::None;
  if (index.constInternalPointer())
    return RowKind::Member;
  const auto row = static_cast<std::size_t>(index.row());
  return row < m_shown.groups.size() ? RowKind::Group : RowKind::Ungrouped;
}

template <class T>
QModelIndex GroupItemModel<T>::index(int row, int column, const QModelIndex& parent) const
{
  return hasIndex(row, column, parent) ? createIndex(row, column, groupAt(parent)) : QModelIndex();
}

template <class T>
QModelIndex GroupItemModel<T>::parent(const QModelIndex& child) const
{
  const auto* group = static_cast<const Group*>(child.constInternalPointer());
  return group ? createIndex(group->row, NameColumn) : QModelIndex();
}

template <class T>
int GroupItemModel<T>::rowCount(const QModelIndex& parent) const
{
  if (!parent.isValid())
    return static_cast<int>(m_shown.groups.size() + m_shown.ungrouped.size());
  const auto* group = parent.column() == NameColumn ? groupAt(parent) : nullptr;
  return group ? static_cast<int>(group->members.size()) : 0;
}

template <class T>
QVariant GroupItemModel<T>::data(const QModelIndex& index, int role) const
{
  try {
    const auto answer = applicationData(index, role);
    return answer.isValid() ? answer : ownData(index, role);
  } catch (...) { // it must not reach the event loop
    tellFailure(std::current_exception());
    return {};
  }
}

template <class T>
QVariant GroupItemModel<T>::ownData(const QModelIndex& index, int role) const
{
  const auto* group = groupAt(index);
  const auto* element = elementAt(index);
  if (!group && !element)
    return {};
  switch (role) {
  case KindRole:
    return QVariant::fromValue(kindOf(index));
  case IdentifierRole:
    return QString::fromStdString(group ? group->id.toString() : element->toString());
  case CountRole:
    return group ? QVariant(static_cast<int>(group->members.size())) : QVariant();
  case Qt::DisplayRole:
  case Qt::EditRole:
  case Qt::ToolTipRole:
    if (index.column() == CountColumn)
      return role == Qt::DisplayRole ? ownData(index, CountRole) : QVariant();
    return ownData(index, NameRole);
  case NameRole:
    return QString::fromStdString(group ? group->name : m_provider->getElementName(*element));
  default:
    return {};
  }
}

extern template class TKM_QTMODELS_DECLARE GroupItemModel<Identifier>;
extern template class TKM_QTMODELS_DECLARE GroupItemModel<GUIdentifier>;

}
