// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Lists.h"

#include "PointCollections/Text/Translated.h"

#include <cstddef>

namespace Tarvik::PointCollections {
namespace {

/// @param join  makes a text of the items so far and the next one
template <class Join>
std::string joined(const std::vector<std::string>& items, Join join)
{
  std::string text = items.empty() ? std::string() : items.front();
  for (std::size_t i = 1; i < items.size(); ++i)
    text = join(text, items[i], i + 1 == items.size());
  return text;
}

std::string withNext(const std::string& items, const std::string& next)
{
  // For translators: a list and its next item, as in "x, y"
  return translated("{}, {}", items, next);
}

}

std::string listed(const std::vector<std::string>& items)
{
  return joined(items,
                [](const auto& some, const auto& next, bool) { return withNext(some, next); });
}

std::string listedWithAnd(const std::vector<std::string>& items)
{
  return joined(items, [](const auto& some, const auto& next, bool isLast) {
    // For translators: a list and its last item, as in "x, y and z"
    return isLast ? translated("{} and {}", some, next) : withNext(some, next);
  });
}

std::string listedWithOr(const std::vector<std::string>& items)
{
  return joined(items, [](const auto& some, const auto& next, bool) {
    // For translators: things to choose from and one more, as in "@1 or @2"
    return translated("{} or {}", some, next);
  });
}

}
