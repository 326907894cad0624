// SPDX-License-Identifier: MIT
// The code of the library: every class, for both kinds of identifiers.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "GroupHosting/Differences/GroupListDifference.h"
#include "GroupHosting/Providers/EditableProvider.h"
#include "GroupHosting/Providers/GroupsSubscription.h"
#include "GroupHosting/Providers/TKGroupProvider.h"

namespace Tarvik {

template class TKM_GROUPHOSTING_DEFINE GroupListDifference<Identifier>;
template class TKM_GROUPHOSTING_DEFINE GroupListDifference<GUIdentifier>;

template class TKM_GROUPHOSTING_DEFINE GroupLists::EditableProvider<Identifier>;
template class TKM_GROUPHOSTING_DEFINE GroupLists::EditableProvider<GUIdentifier>;

template class TKM_GROUPHOSTING_DEFINE GroupsSubscription<Identifier>;
template class TKM_GROUPHOSTING_DEFINE GroupsSubscription<GUIdentifier>;

template class TKM_GROUPHOSTING_DEFINE TKGroupProvider<Identifier>;
template class TKM_GROUPHOSTING_DEFINE TKGroupProvider<GUIdentifier>;

template class TKM_GROUPHOSTING_DEFINE MoveTKGroupsCmd<Identifier>;
template class TKM_GROUPHOSTING_DEFINE MoveTKGroupsCmd<GUIdentifier>;

template class TKM_GROUPHOSTING_DEFINE CompactTKGroupCmd<Identifier>;
template class TKM_GROUPHOSTING_DEFINE CompactTKGroupCmd<GUIdentifier>;

}
