// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/NameSetProvider.h"
#include "PlatformExport.h"

#include <string>

namespace Tarvik {

/// Finds names that are not taken yet.
class TKM_GENERALSERVICES_API UniqueNameProvider {
public:
  UniqueNameProvider() = delete;
  UniqueNameProvider(const UniqueNameProvider&) = delete;
  UniqueNameProvider& operator=(const UniqueNameProvider&) = delete;

  /// The base itself if it is free. Otherwise the base, a blank and the lowest number from 2 up
  /// that makes a free name. Equal arguments give equal names.
  ///
  /// A number at the end of a taken base is replaced: "Group 2" gives "Group 3", not "Group 2 2",
  /// and "Year 2024" gives "Year 2".
  ///
  /// Asks `names` once for the base and once for each number tried.
  /// @param base   any text; may be empty
  /// @param names  knows which names are taken
  static std::string createUniqueName(const std::string& base, const NameSetProvider& names);
};

}
