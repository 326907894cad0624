// SPDX-License-Identifier: MIT
// The code of the class templates, for both kinds of identifiers.

#include "QtModels/Editing/GroupEditor.h"
#include "QtModels/Editing/GroupOperations.h"
#include "QtModels/Editing/GroupStep.h"
#include "QtModels/Models/GroupItemModel.h"

namespace Tarvik {

template class TKM_QTMODELS_DEFINE GroupItemModel<Identifier>;
template class TKM_QTMODELS_DEFINE GroupItemModel<GUIdentifier>;

template class TKM_QTMODELS_DEFINE GroupStep<Identifier>;
template class TKM_QTMODELS_DEFINE GroupStep<GUIdentifier>;

template class TKM_QTMODELS_DEFINE GroupOperations<Identifier>;
template class TKM_QTMODELS_DEFINE GroupOperations<GUIdentifier>;

template class TKM_QTMODELS_DEFINE GroupEditor<Identifier>;
template class TKM_QTMODELS_DEFINE GroupEditor<GUIdentifier>;

}
