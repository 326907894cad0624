// SPDX-License-Identifier: MIT
// The code of the library: every class for both kinds of identifiers.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/Groups/PointerMapContainer.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"

namespace Tarvik {

template class TKM_HIGHLEVELSERVICES_DEFINE TKGroup<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE TKGroup<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE TKGroupProviderInterface<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE TKGroupProviderInterface<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE PointerMapContainer<TKGroup<Identifier>>;
template class TKM_HIGHLEVELSERVICES_DEFINE PointerMapContainer<TKGroup<GUIdentifier>>;

template class TKM_HIGHLEVELSERVICES_DEFINE AddToTKGroupCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE AddToTKGroupCmd<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE CreateTKGroupCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE CreateTKGroupCmd<GUIdentifier>;

}
