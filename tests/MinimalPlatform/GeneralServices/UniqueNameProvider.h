// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/SimpleNameSetProvider.h"

#include <string>

namespace Tarvik {

/// Makes other names than the bundled platform does: "Group" becomes "Group'".
class UniqueNameProvider {
public:
  static std::string createUniqueName(const std::string& base, const NameSetProvider& names)
  {
    const auto& taken = dynamic_cast<const SimpleNameSetProvider&>(names);
    std::string name = base;
    while (taken.has(name))
      name += '\'';
    return name;
  }
};

}
