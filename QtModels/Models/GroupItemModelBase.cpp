// SPDX-License-Identifier: MIT
#include "QtModels/Models/GroupItemModelBase.h"

namespace Tarvik {

GroupItemModelBase::GroupItemModelBase(QObject* parent) : QAbstractItemModel(parent) {}

GroupItemModelBase::~GroupItemModelBase() = default;

}
