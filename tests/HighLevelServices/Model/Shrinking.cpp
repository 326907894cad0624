// SPDX-License-Identifier: MIT
#include "HighLevelServices/Model/Shrinking.h"

#include <cstddef>
#include <string>
#include <variant>

namespace Tarvik::Modelling {

namespace {

using Check = std::function<bool(const Operations&)>;

template <class List>
List without(const List& list, std::size_t first, std::size_t count = 1)
{
  List result = list;
  const auto begin = result.begin() + static_cast<std::ptrdiff_t>(first);
  result.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
  return result;
}

/// Leaves out stretches of operations, long ones first.
Operations withoutStretches(Operations operations, const Check& fails)
{
  for (std::size_t length = operations.size(); length > 0; length /= 2) {
    for (std::size_t first = 0; first + length <= operations.size();) {
      const auto fewer = without(operations, first, length);
      if (fails(fewer))
        operations = fewer;
      else
        ++first;
    }
  }
  return operations;
}

/// Leaves out two operations that need each other, as an undo and a redo do.
Operations withoutPairs(Operations operations, const Check& fails)
{
  for (std::size_t first = 0; first < operations.size(); ++first) {
    for (std::size_t second = first + 1; second < operations.size(); ++second) {
      const auto fewer = without(without(operations, second), first);
      if (fails(fewer))
        return withoutPairs(fewer, fails);
    }
  }
  return operations;
}

/// All operations that are one step simpler; no number of such steps leads back.
template <class Each>
Operations simpler(const Each& operation)
{
  Operations result;
  [[maybe_unused]] const auto offer = [&](auto change) {
    auto copy = operation;
    change(copy);
    result.push_back(copy);
  };
  if constexpr (requires { operation.elements; })
    for (std::size_t i = 0; i < operation.elements.size(); ++i)
      offer([i](auto& copy) { copy.elements = without(copy.elements, i); });
  if constexpr (requires { operation.groups; })
    for (std::size_t i = 0; i < operation.groups.size(); ++i)
      offer([i](auto& copy) { copy.groups = without(copy.groups, i); });
  if constexpr (requires { operation.sameIdAs; })
    if (operation.sameIdAs)
      offer([](auto& copy) { copy.sameIdAs.reset(); });
  if constexpr (requires { operation.index; })
    if (operation.index)
      offer([](auto& copy) { copy.index.reset(); });
  if constexpr (requires { operation.listing; })
    if (operation.listing != Listing::AsTheyAre)
      offer([](auto& copy) { copy.listing = Listing::AsTheyAre; });
  if constexpr (requires { operation.position; })
    result.push_back(Undo{});
  if constexpr (requires { operation.group; })
    if (operation.group > 0)
      offer([](auto& copy) { copy.group = 0; });
  return result;
}

Operations withSimplerOperations(Operations operations, const Check& fails)
{
  for (std::size_t i = 0; i < operations.size();) {
    const auto candidates =
        std::visit([](const auto& each) { return simpler(each); }, operations[i]);
    bool isSimpler = false;
    for (const auto& candidate : candidates) {
      auto copy = operations;
      copy[i] = candidate;
      if (!isSimpler && fails(copy)) {
        operations = copy;
        isSimpler = true;
      }
    }
    if (!isSimpler)
      ++i;
  }
  return operations;
}

}

Operations shrunk(const Operations& failing, const std::function<bool(const Operations&)>& fails)
{
  Operations operations = failing;
  std::string before;
  while (text(operations) != before) {
    before = text(operations);
    operations = withoutStretches(operations, fails);
    operations = withoutPairs(operations, fails);
    operations = withSimplerOperations(operations, fails);
  }
  return operations;
}

}
