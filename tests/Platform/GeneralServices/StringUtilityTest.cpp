// SPDX-License-Identifier: MIT
#include "GeneralServices/StringUtility.h"

#include <gtest/gtest.h>

namespace Tarvik {
namespace {

TEST(ToLower, LowersTheLettersAToZAndNothingElse)
{
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    const bool isUpper = byte >= 'A' && byte <= 'Z';
    const std::string expected(1, static_cast<char>(isUpper ? byte - 'A' + 'a' : byte));
    EXPECT_EQ(StringUtility::toLower(text), expected) << "byte " << byte;
  }
}

}
}
