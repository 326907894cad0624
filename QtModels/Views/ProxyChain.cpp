// SPDX-License-Identifier: MIT
#include "QtModels/Views/ProxyChain.h"

#include "QtModels/Models/GroupItemModelBase.h"

#include <QtCore/QAbstractProxyModel>

namespace Tarvik::ProxyChain {

const GroupItemModelBase* groupModelOf(const QAbstractItemModel* viewModel)
{
  while (const auto* proxy = qobject_cast<const QAbstractProxyModel*>(viewModel))
    viewModel = proxy->sourceModel();
  return qobject_cast<const GroupItemModelBase*>(viewModel);
}

GroupEditorBase* editorOf(const QAbstractItemModel* viewModel)
{
  const auto* groups = groupModelOf(viewModel);
  return groups ? groups->editor() : nullptr;
}

QModelIndex toGroupModel(QModelIndex index)
{
  while (const auto* proxy = qobject_cast<const QAbstractProxyModel*>(index.model()))
    index = proxy->mapToSource(index);
  return index;
}

QModelIndex fromGroupModel(const QModelIndex& index, const QAbstractItemModel* viewModel)
{
  const auto* proxy = qobject_cast<const QAbstractProxyModel*>(viewModel);
  return proxy ? proxy->mapFromSource(fromGroupModel(index, proxy->sourceModel())) : index;
}

}
