// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <string>

namespace Tarvik {

/// Operations on texts.
class TKM_GENERALSERVICES_API StringUtility {
public:
  StringUtility() = delete;
  StringUtility(const StringUtility&) = delete;
  StringUtility& operator=(const StringUtility&) = delete;

  /// A copy of the text with the letters A to Z in lower case. All other bytes are copied
  /// unchanged, also those of letters outside ASCII. The locale makes no difference.
  static std::string toLower(const std::string& text);
};

}
