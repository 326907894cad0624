// SPDX-License-Identifier: MIT
// The code of the class templates, for both kinds of identifiers.

#include "QtModels/Models/GroupItemModel.h"

namespace Tarvik {

template class TKM_QTMODELS_DEFINE GroupItemModel<Identifier>;
template class TKM_QTMODELS_DEFINE GroupItemModel<GUIdentifier>;

}
