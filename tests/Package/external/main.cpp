// SPDX-License-Identifier: MIT
#include "HighLevelServices/Groups/TKGroup.h"

#include <cstdlib>

int main()
{
  using Tarvik::Identifier;

  Tarvik::TKGroup<Identifier> group("Inlet");
  const Identifier pump;
  group.addGroupMember(pump);
  return group.isInGroup(pump) && decltype(group)::s_force_serialization_registration
             ? EXIT_SUCCESS
             : EXIT_FAILURE;
}
