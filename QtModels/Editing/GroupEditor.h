// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/Editing/GroupDragData.h"
#include "QtModels/Editing/GroupDrop.h"
#include "QtModels/Editing/GroupEditorBase.h"
#include "QtModels/Editing/GroupOperations.h"
#include "QtModels/Editing/GroupRows.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/QtModelsExport.h"

#include <QtCore/QMimeData>

#include <algorithm>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

namespace Tarvik {

/// Lets the user edit the groups of a model: by drag and drop, in-place renaming, and the actions
/// of views. Without an editor, a model only shows.
///
///     auto* model = new GroupItemModel<Identifier>(provider, this);
///     new GroupEditor<Identifier>(*model, handlerIn<Identifier>(history, provider));
template <class T>
class GroupEditor : public GroupEditorBase {
public:
  /// Says what is wrong with a new name for a group, in the user's language; an empty text if
  /// nothing is.
  using NameCheck = std::function<QString(const Identifier& groupId, const QString& name)>;

  /// Becomes the editor of the model.
  /// @param model    becomes the owner of the editor
  /// @param handler  executes the requests, for instance handlerIn(); not empty
  GroupEditor(GroupItemModel<T>& model, GroupRequestHandler<T> handler);
  ~GroupEditor() override;

  /// The same operations in terms of groups and elements.
  const GroupOperations<T>& operations() const;

  /// Sets what names groups may be given. Unless it is set, blank names and the names of other
  /// groups are refused.
  /// @param check  what it throws counts as a fault; not empty
  void setNameCheck(NameCheck check);

  /// Sets where createGroup() puts groups; at the end unless it is set.
  void setPlaceOfNewGroups(const GroupPlace& place);

  QModelIndex createGroup(const QModelIndexList& rows, const QString& name = QString()) override;
  bool addToGroup(const QModelIndexList& rows, const QModelIndex& group) override;
  bool removeFromGroups(const QModelIndexList& rows) override;
  bool moveBeside(const QModelIndexList& rows, const QModelIndex& target, Side side) override;
  bool deleteGroups(const QModelIndexList& rows) override;
  bool renameGroup(const QModelIndex& group, const QString& name) override;
  bool sortGroups() override;
  QString faultOfName(const QModelIndex& group, const QString& name) const override;
  QMimeData* dragData(const QModelIndexList& rows) const override;
  bool canDrop(const QMimeData& data, int row, const QModelIndex& parent) const override;
  bool drop(const QMimeData& data, int row, const QModelIndex& parent) override;

private:
  using RowKind = GroupItemModelBase::RowKind;

  GroupRows<T> contentsOf(const QModelIndexList& rows) const;
  GroupDragData::Document document() const;
  QString usualFault(const Identifier& groupId, const QString& name) const;

  GroupItemModel<T>& m_model;
  GroupOperations<T> m_operations;
  NameCheck m_nameCheck;
  GroupPlace m_placeOfNewGroups;
};

template <class T>
GroupEditor<T>::GroupEditor(GroupItemModel<T>& model, GroupRequestHandler<T> handler)
    : GroupEditorBase(&model),
      m_model(model),
      m_operations(model.provider(), std::move(handler)),
      m_nameCheck(
          [this](const auto& groupId, const auto& name) { return usualFault(groupId, name); })
{
  model.setEditor(this);
}

template <class T>
GroupEditor<T>::~GroupEditor() = default;

template <class T>
const GroupOperations<T>& GroupEditor<T>::operations() const
{
  return m_operations;
}

template <class T>
void GroupEditor<T>::setNameCheck(NameCheck check)
{
  m_nameCheck = std::move(check);
}

template <class T>
void GroupEditor<T>::setPlaceOfNewGroups(const GroupPlace& place)
{
  m_placeOfNewGroups = place;
}

template <class T>
QModelIndex GroupEditor<T>::createGroup(const QModelIndexList& rows, const QString& name)
{
  QModelIndex created;
  attempt([&] {
    const auto id =
        m_operations.createGroup(contentsOf(rows).elements, name.toStdString(), m_placeOfNewGroups);
    created = id ? m_model.indexOfGroup(*id) : QModelIndex();
    return id.has_value();
  });
  return created;
}

template <class T>
bool GroupEditor<T>::addToGroup(const QModelIndexList& rows, const QModelIndex& group)
{
  return attempt(
      [&] { return m_operations.addToGroup(contentsOf(rows).elements, m_model.groupIdAt(group)); });
}

template <class T>
bool GroupEditor<T>::removeFromGroups(const QModelIndexList& rows)
{
  return attempt([&] { return m_operations.removeFromGroups(contentsOf(rows).elements); });
}

template <class T>
bool GroupEditor<T>::moveBeside(const QModelIndexList& rows, const QModelIndex& target, Side side)
{
  return attempt([&] {
    const auto contents = contentsOf(rows);
    const auto next = static_cast<std::size_t>(target.row()) + (side == Side::After ? 1 : 0);
    switch (contents.areMixed() ? RowKind::None : m_model.kindOf(target)) {
    case RowKind::Group:
      return m_operations.moveGroups(contents.groups, m_model.groupIdAt(target), side);
    case RowKind::Member:
      return m_operations.insertIntoGroup(contents.elements, m_model.groupIdAt(target.parent()),
                                          next);
    case RowKind::Ungrouped:
      return m_operations.moveElements(contents.elements, T(*m_model.elementAt(target)), side);
    default:
      return false;
    }
  });
}

template <class T>
bool GroupEditor<T>::deleteGroups(const QModelIndexList& rows)
{
  return attempt([&] { return m_operations.deleteGroups(contentsOf(rows).groups); });
}

template <class T>
bool GroupEditor<T>::renameGroup(const QModelIndex& group, const QString& name)
{
  return attempt([&] {
    const auto groupId = m_model.groupIdAt(group);
    return m_nameCheck(groupId, name).isEmpty() &&
           m_operations.renameGroup(groupId, name.toStdString());
  });
}

template <class T>
bool GroupEditor<T>::sortGroups()
{
  return attempt([&] { return m_operations.sortGroups(); });
}

template <class T>
QString GroupEditor<T>::faultOfName(const QModelIndex& group, const QString& name) const
{
  try {
    return m_nameCheck(m_model.groupIdAt(group), name);
  } catch (const std::exception& failure) {
    return QString::fromUtf8(failure.what());
  } catch (...) {
    return faultOfUnknownKind();
  }
}

template <class T>
QMimeData* GroupEditor<T>::dragData(const QModelIndexList& rows) const
{
  const auto contents = contentsOf(rows);
  const bool isEmpty = contents.groups.empty() && contents.elements.empty();
  if (isEmpty || contents.areMixed())
    return nullptr;
  const auto bits = [](const auto& id) { return id.bits(); };
  GroupDragData drag{document(), GroupDragData::Kind::Groups, {}};
  std::transform(contents.groups.begin(), contents.groups.end(), std::back_inserter(drag.ids),
                 bits);
  if (contents.groups.empty()) {
    drag.kind = GroupDragData::Kind::Elements;
    std::transform(contents.elements.begin(), contents.elements.end(), std::back_inserter(drag.ids),
                   bits);
  }
  auto data = std::make_unique<QMimeData>();
  data->setData(GroupDragData::mimeType(), drag.toBytes());
  return data.release();
}

template <class T>
bool GroupEditor<T>::canDrop(const QMimeData& data, int row, const QModelIndex& parent) const
{
  const auto kind = GroupDragData::kindOf(data.data(GroupDragData::mimeType()), document());
  return kind && GroupDrop<T>(m_model, row, parent).accepts(*kind);
}

template <class T>
bool GroupEditor<T>::drop(const QMimeData& data, int row, const QModelIndex& parent)
{
  return attempt([&] {
    const auto drag = GroupDragData::fromBytes(data.data(GroupDragData::mimeType()), document());
    const GroupDrop<T> place(m_model, row, parent);
    if (!drag || !place.accepts(drag->kind))
      return false;
    place.carryOut(*drag, m_operations);
    return true;
  });
}

template <class T>
GroupRows<T> GroupEditor<T>::contentsOf(const QModelIndexList& rows) const
{
  return GroupRows<T>::of(m_model, rows);
}

template <class T>
GroupDragData::Document GroupEditor<T>::document() const
{
  return reinterpret_cast<GroupDragData::Document>(m_model.provider().get());
}

template <class T>
QString GroupEditor<T>::usualFault(const Identifier& groupId, const QString& name) const
{
  if (name.trimmed().isEmpty())
    return faultOfBlankName();
  const auto wanted = name.toStdString();
  const auto& groups = m_model.provider()->getGroups();
  const bool isTaken = std::any_of(groups.begin(), groups.end(), [&](const auto& group) {
    return group.getName() == wanted && group.getId() != groupId;
  });
  return isTaken ? faultOfTakenName() : QString();
}

extern template class TKM_QTMODELS_DECLARE GroupEditor<Identifier>;
extern template class TKM_QTMODELS_DECLARE GroupEditor<GUIdentifier>;

}
