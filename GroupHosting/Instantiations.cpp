// SPDX-License-Identifier: MIT
// The code of the library: every class, for both kinds of identifiers.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Differences/GroupListDifference.h"

namespace Tarvik {

template class TKM_GROUPHOSTING_DEFINE GroupListDifference<Identifier>;
template class TKM_GROUPHOSTING_DEFINE GroupListDifference<GUIdentifier>;

template class TKM_GROUPHOSTING_DEFINE CompactTKGroupCmd<Identifier>;
template class TKM_GROUPHOSTING_DEFINE CompactTKGroupCmd<GUIdentifier>;

}
