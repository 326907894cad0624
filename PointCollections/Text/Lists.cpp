// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Lists.h"

#include "PointCollections/Text/Translated.h"

#include <span>

namespace Tarvik::PointCollections {
namespace {

using Items = std::span<const std::string>;

/// @param join  makes a list of two
template <class Join>
std::string joined(Items items, Join join)
{
  if (items.size() < 2)
    return items.empty() ? std::string() : items.front();
  const auto half = items.size() / 2; // so that no item is copied often
  const auto first = joined(items.first(half), join);
  return join(first, joined(items.subspan(half), join));
}

std::string withComma(const std::string& some, const std::string& others)
{
  // For translators: two parts of a list, as in "x, y"; each may be a list itself
  return translated("{}, {}", some, others);
}

}

std::string listed(const std::vector<std::string>& items)
{
  return joined(items, withComma);
}

std::string listedWithAnd(const std::vector<std::string>& items)
{
  if (items.size() < 2)
    return listed(items);
  const auto list = joined(Items(items).first(items.size() - 1), withComma);
  // For translators: a list and its last item, as in "x, y and z"
  return translated("{} and {}", list, items.back());
}

std::string listedWithOr(const std::vector<std::string>& items)
{
  return joined(items, [](const auto& some, const auto& others) {
    // For translators: things to choose from, as in "@1 or @2"; each part may have several
    return translated("{} or {}", some, others);
  });
}

}
