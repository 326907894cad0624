// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QModelIndex>

class QAbstractItemModel;

namespace Tarvik {
class GroupEditorBase;
class GroupItemModelBase;
}

/// The way from the model of a view to the model of groups, through any proxies between the two.
namespace Tarvik::ProxyChain {

/// The model of groups; null if there is none at the end of the chain.
TKM_QTMODELS_API const GroupItemModelBase* groupModelOf(const QAbstractItemModel* viewModel);

/// The editor of that model; null if there is none.
TKM_QTMODELS_API GroupEditorBase* editorOf(const QAbstractItemModel* viewModel);

/// The row of the model of groups that the index of a proxy shows.
TKM_QTMODELS_API QModelIndex toGroupModel(QModelIndex index);

/// The index in the view's model that shows the row of the model of groups; invalid if a proxy
/// hides the row.
TKM_QTMODELS_API QModelIndex fromGroupModel(const QModelIndex& index,
                                            const QAbstractItemModel* viewModel);

}
