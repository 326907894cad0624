// SPDX-License-Identifier: MIT
// The code of the library: every class, for both kinds of identifiers.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "HighLevelServices/Groups/PointerMapContainer.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupPersistence.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"

namespace Tarvik {

template class TKM_HIGHLEVELSERVICES_DEFINE TKGroup<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE TKGroup<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE TKGroupProviderInterface<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE TKGroupProviderInterface<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE PointerMapContainerBase<TKGroup<Identifier>>;
template class TKM_HIGHLEVELSERVICES_DEFINE PointerMapContainerBase<TKGroup<GUIdentifier>>;
template class TKM_HIGHLEVELSERVICES_DEFINE PointerMapContainer<TKGroup<Identifier>>;
template class TKM_HIGHLEVELSERVICES_DEFINE PointerMapContainer<TKGroup<GUIdentifier>>;

template class TKM_HIGHLEVELSERVICES_DEFINE AddToTKGroupCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE AddToTKGroupCmd<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE CreateTKGroupCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE CreateTKGroupCmd<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE MoveTKGroupElementsCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE MoveTKGroupElementsCmd<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE RemoveFromTKGroupCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE RemoveFromTKGroupCmd<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE RemoveTKGroupsCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE RemoveTKGroupsCmd<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE RenameTKGroupCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE RenameTKGroupCmd<GUIdentifier>;

template class TKM_HIGHLEVELSERVICES_DEFINE SortTKGroupsAlphabeticallyCmd<Identifier>;
template class TKM_HIGHLEVELSERVICES_DEFINE SortTKGroupsAlphabeticallyCmd<GUIdentifier>;

}
