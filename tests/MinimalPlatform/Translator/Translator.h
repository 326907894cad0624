// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Tarvik {

class Translator {
public:
  static std::string translate(const char*, const char* text, const char*, int) { return text; }
};

}
