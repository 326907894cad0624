// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Tarvik {

/// Knows no language but that of the texts.
class Translator {
public:
  static std::string
  translate(const char* context, const char* text, const char* disambiguation, int count);
};

}
