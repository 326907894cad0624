// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <string>

namespace Tarvik {

/// Small helpers for texts.
class TKM_GENERALSERVICES_API StringUtility {
public:
  StringUtility() = delete;

  /// A copy of the text with the letters A to Z in lower case. All other bytes stay as they are,
  /// those of letters outside ASCII included, whatever the locale.
  static std::string toLower(const std::string& text);
};

}
