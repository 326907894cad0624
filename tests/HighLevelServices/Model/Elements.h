// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>

/// The elements that random operations work on, by number. Their names differ in lower case too, so
/// that sorting by name has one outcome.
namespace Tarvik::Modelling {

/// The host knows the first ones; the last is the invalid identifier. After them come the elements
/// of a crowd, all of which the host knows, for tests of large selections.
inline constexpr std::array elementNames{"Zeta",  "alpha", "Alpha 10",     "alpha 9",
                                         "Beta1", "B_eta", "\xC3\xA4ther", "eta",
                                         "stray", "Alien", "invalid"};
inline constexpr int knownElements = 8;
inline constexpr int numberOfElements = static_cast<int>(elementNames.size());
inline constexpr int invalidElement = numberOfElements - 1;

inline std::string elementName(int number)
{
  if (number >= numberOfElements)
    return "Crowd " + std::to_string(number);
  return elementNames.at(static_cast<std::size_t>(number));
}

/// The second name of an element on a host that lists members twice: before all other names for
/// some elements, after them for the rest.
inline std::string secondName(const std::string& name)
{
  return (name.size() % 2 == 0 ? "#" : "\xFF") + name;
}

}
