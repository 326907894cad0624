// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Tarvik {

class StringUtility {
public:
  static std::string toLower(const std::string& text)
  {
    std::string result = text;
    for (char& letter : result)
      letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    return result;
  }
};

}
