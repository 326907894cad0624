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

  /// The base itself when it is free; otherwise the base, a blank and the lowest number from 2 up
  /// that makes a free name. A number at the end of a taken base is replaced rather than followed
  /// by another, whatever it is: "Group 2" gives "Group 3" when there is a "Group 2" alone, not
  /// "Group 2 2", and "Year 2024" gives "Year 2". Equal arguments give equal names.
  ///
  /// Asks `names` once for the base and once for each number tried.
  /// @param base   any text, the empty one included
  /// @param names  answers which names are taken
  static std::string createUniqueName(const std::string& base, const NameSetProvider& names);
};

}
