// SPDX-License-Identifier: MIT
#include "GeneralServices/UniqueNameProvider.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string_view>

namespace Tarvik {

namespace {

/// The base without the blank and the number that createUniqueName() may have added.
std::string_view withoutNumber(std::string_view base)
{
  const auto lastOfText = base.find_last_not_of("0123456789");
  if (lastOfText == std::string_view::npos || lastOfText == 0 || base[lastOfText] != ' ')
    return base;
  const auto number = base.substr(lastOfText + 1);
  return number.empty() || number.front() == '0' ? base : base.substr(0, lastOfText);
}

}

std::string UniqueNameProvider::createUniqueName(const std::string& base,
                                                 const NameSetProvider& names)
{
  if (!names.contains(base))
    return base;

  std::string name(withoutNumber(base));
  name += ' ';
  const auto stemLength = name.size();
  std::array<char, std::numeric_limits<std::uint64_t>::digits10 + 1> digits{};
  for (std::uint64_t number = 2;; ++number) {
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    name.resize(stemLength);
    name.append(digits.data(), end);
    if (!names.contains(name))
      return name;
  }
}

}
