// SPDX-License-Identifier: MIT
#include "GroupHosting/Differences/GroupListDifference.h"
#include "HighLevelServices/Groups/TKGroup.h"

#include <cstdlib>

int main()
{
  using Tarvik::Identifier;

  Tarvik::TKGroup<Identifier> group("Inlet");
  const Identifier pump;
  group.addGroupMember(pump);
  const Tarvik::GroupListDifference<Identifier> difference({}, {group});
  return group.isInGroup(pump) && difference.steps().size() == 1 &&
                 decltype(group)::s_force_serialization_registration
             ? EXIT_SUCCESS
             : EXIT_FAILURE;
}
