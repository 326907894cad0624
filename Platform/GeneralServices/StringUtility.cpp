// SPDX-License-Identifier: MIT
#include "GeneralServices/StringUtility.h"

#include <algorithm>

namespace Tarvik {

namespace {

/// Without a branch, so that the compiler converts many letters at a time.
constexpr char lowered(char letter)
{
  const auto byte = static_cast<unsigned char>(letter);
  const auto isUpper = static_cast<unsigned char>(byte - 'A') < 26U;
  return static_cast<char>(byte | (static_cast<unsigned int>(isUpper) << 5U));
}

}

std::string StringUtility::toLower(const std::string& text)
{
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lowered);
  return result;
}

}
