// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/NameInterface.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Support/FixedGroups.h"

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {

/// What groups-1.tkma holds, in this order.
struct GoldenGroups {
  std::vector<TKGroup<Identifier>> groups;
  std::vector<TKGroup<GUIdentifier>> guidGroups;
  std::shared_ptr<TKGroup<Identifier>> shared;
  std::shared_ptr<TKGroup<Identifier>> sharedAgain; ///< the same group
  std::shared_ptr<NameInterface> sharedName;        ///< the same group
  std::shared_ptr<NameInterface> guidGroupName;     ///< a group of the other kind
  std::shared_ptr<NameInterface> plainName;
  std::shared_ptr<TKGroup<GUIdentifier>> none;

  void saveTo(PersistenceArchiver& archive) const
  {
    archive << groups << guidGroups << shared << sharedAgain << sharedName << guidGroupName
            << plainName << none;
  }

  void loadFrom(PersistenceArchiver& archive)
  {
    archive >> groups >> guidGroups >> shared >> sharedAgain >> sharedName >> guidGroupName >>
        plainName >> none;
  }
};

inline GoldenGroups goldenGroups()
{
  const auto id = [](unsigned int low) { return fixed<Identifier>(low); };
  const auto guid = [](unsigned int low) { return fixed<GUIdentifier>(low); };

  GoldenGroups golden;
  golden.groups = {
      fixedGroup<Identifier>(id(0x11), "Pumps", {id(0xa1), id(0xa2), id(0xa3)}),
      fixedGroup<Identifier>(id(0x12), ""),
      fixedGroup<Identifier>(id(0x13), std::string(" \0\xff ", 4),
                             {id(0xa1), id(0xa1), Identifier::getInvalidId()}),
  };
  golden.guidGroups = {
      fixedGroup<GUIdentifier>(id(0x21), "Lager f\xc3\xbcr Ventile", {guid(0xb1), guid(0xb2)}),
      fixedGroup<GUIdentifier>(Identifier::getInvalidId(), "without an id",
                               {GUIdentifier::getInvalidId()}),
  };
  golden.shared =
      std::make_shared<TKGroup<Identifier>>(fixedGroup<Identifier>(id(0x31), "Shared", {id(0xc1)}));
  golden.sharedAgain = golden.shared;
  golden.sharedName = golden.shared;
  golden.guidGroupName = std::make_shared<TKGroup<GUIdentifier>>(
      fixedGroup<GUIdentifier>(id(0x32), "By its name", {guid(0xc2)}));
  golden.plainName = std::make_shared<NameInterface>("Only a name");
  return golden;
}

}
