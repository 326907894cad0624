// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementFilter.h"
#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Tarvik::GroupLists {

/// Whether a filter shows that no two elements are equal. It often does when they were created one
/// after another; otherwise it soon fails.
template <class T>
bool areCertainlyDifferent(const std::vector<T>& elements)
{
  ElementFilter<T> filter(elements.size());
  return std::all_of(elements.begin(), elements.end(),
                     [&filter](const T& element) { return filter.add(element); });
}

/// For each element whether an equal one is before it.
template <class T>
std::vector<bool> repeatedOnes(const std::vector<T>& elements)
{
  std::vector<bool> isRepeated(elements.size());
  if constexpr (Hashable<T>) {
    if (areHashed(elements.size())) {
      if (areCertainlyDifferent(elements))
        return isRepeated;
      const ElementTable<T> table(
          elements, [&isRepeated](std::size_t, std::size_t later) { isRepeated[later] = true; });
      return isRepeated;
    }
  }
  for (auto element = elements.begin(); element != elements.end(); ++element)
    isRepeated[static_cast<std::size_t>(element - elements.begin())] =
        std::find(elements.begin(), element, *element) != element;
  return isRepeated;
}

/// The elements without duplicates, in the order of their first occurrence.
template <class T>
std::vector<T> distinct(const std::vector<T>& elements)
{
  const auto isRepeated = repeatedOnes(elements);
  if (std::none_of(isRepeated.begin(), isRepeated.end(), [](bool is) { return is; }))
    return elements;
  std::vector<T> result;
  result.reserve(elements.size());
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (!isRepeated[i])
      result.push_back(elements[i]);
  }
  return result;
}

}
