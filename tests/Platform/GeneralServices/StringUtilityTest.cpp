// SPDX-License-Identifier: MIT
#include "GeneralServices/StringUtility.h"

#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <locale>
#include <string>
#include <type_traits>

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

TEST(ToLower, LowersEveryLetterWhateverTheLength)
{
  const std::string cycle = "Az[@Z`{a\xc3\x9c\x01";
  const std::string lowered = "az[@z`{a\xc3\x9c\x01";

  for (std::size_t length = 0; length <= 100; ++length)
    for (std::size_t start = 0; start < cycle.size(); ++start) {
      std::string text;
      std::string expected;
      for (std::size_t i = 0; i < length; ++i) {
        text += cycle[(start + i) % cycle.size()];
        expected += lowered[(start + i) % cycle.size()];
      }
      EXPECT_EQ(StringUtility::toLower(text), expected) << length << " bytes";
    }
}

TEST(ToLower, LowersALongText)
{
  EXPECT_EQ(StringUtility::toLower(std::string(1'000'003, 'Q')), std::string(1'000'003, 'q'));
}

TEST(ToLower, ContinuesAfterAZeroByte)
{
  EXPECT_EQ(StringUtility::toLower(std::string("A\0B\0", 4)), std::string("a\0b\0", 4));
}

TEST(ToLower, LeavesItsArgumentAsItIs)
{
  const std::string text = "MIXED case, too long to be kept within the string";

  StringUtility::toLower(text);

  EXPECT_EQ(text, "MIXED case, too long to be kept within the string");
}

/// A locale without the letter I. It must not matter to toLower().
class LocaleWithoutI : public std::ctype<char> {
protected:
  char do_tolower(char letter) const override { return letter == 'I' ? '1' : '?'; }
  const char* do_tolower(char* begin, const char* end) const override
  {
    std::fill(begin, begin + (end - begin), '?');
    return end;
  }
};

TEST(ToLower, DoesNotDependOnTheGlobalLocale)
{
  const std::locale original =
      std::locale::global(std::locale(std::locale::classic(), new LocaleWithoutI));

  const auto lowered = StringUtility::toLower("TITLE \xdc");

  std::locale::global(original);
  EXPECT_EQ(lowered, "title \xdc");
}

TEST(ToLower, DoesNotDependOnAnyInstalledLocaleOfTheCLibrary)
{
  const std::string original = std::setlocale(LC_ALL, nullptr);
  for (const auto* const locale : {"tr_TR.ISO-8859-9", "tr_TR.UTF-8", "de_DE.ISO-8859-1", "C"}) {
    if (std::setlocale(LC_ALL, locale) == nullptr)
      continue; // not installed here
    const auto lowered = StringUtility::toLower("TITLE \xdc\xc3\x9c");
    std::setlocale(LC_ALL, original.c_str());
    EXPECT_EQ(lowered, "title \xdc\xc3\x9c") << locale;
  }
}

#if !defined(_MSC_VER) // allocations in DLLs cannot be counted there

TEST(ToLower, AllocatesAtMostOnce)
{
  for (const std::size_t length : {0U, 15U, 16U, 100U, 100'000U}) {
    const std::string text(length, 'Q');
    std::size_t allocations = 0;
    std::size_t lettersLeft = 0;
    {
      const AllocationWatch watch;
      const auto lowered = StringUtility::toLower(text);
      allocations = watch.count();
      lettersLeft = lowered.size();
    }

    EXPECT_LE(allocations, 1U) << length << " bytes";
    EXPECT_GE(allocations, length >= 100 ? 1U : 0U) << "allocations in the library are not counted";
    EXPECT_EQ(lettersLeft, length);
  }
}

#endif

TEST(ToLower, NeedsNoUtilityObject)
{
  static_assert(!std::is_default_constructible_v<StringUtility>);
}

}
}
