// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Lists.h"

#include "PointCollections/Text/Translated.h"

#include <span>

namespace Tarvik::PointCollections {
namespace {

std::string joinedItems(std::span<const std::string> items)
{
  if (items.size() < 2)
    return items.empty() ? std::string() : items.front();
  const auto half = items.size() / 2; // so that no item is copied often
  const auto first = joinedItems(items.first(half));
  // For translators: joins two parts of a list; each may be a list itself.
  return translated("{}, {}", first, joinedItems(items.subspan(half)));
}

}

std::string joined(const std::vector<std::string>& items)
{
  return joinedItems(items);
}

std::string joinedWithAnd(const std::vector<std::string>& items)
{
  if (items.size() < 2)
    return joinedItems(items);
  const auto list = joinedItems(std::span(items).first(items.size() - 1));
  // For translators: joins the last part of a list; the first part may be a list: "Asia, Africa".
  return translated("{} and {}", list, items.back());
}

}
