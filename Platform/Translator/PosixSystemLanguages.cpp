// SPDX-License-Identifier: MIT
#include "Translator/SystemLanguages.h"

namespace Tarvik {

std::vector<std::string> systemLanguages()
{
  return {};
}

}
