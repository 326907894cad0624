// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ComparingSearch.h"
#include "HighLevelServices/GroupCommands/HashSearch.h"

#include <cstddef>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace Tarvik::GroupLists {

/// A HashSearch, or a ComparingSearch where there is no hash or where it is faster. Not for hosts.
template <class T>
class Search {
public:
  /// @param elements  must outlive the search and must not change
  explicit Search(const std::vector<T>& elements) : m_search(chosenFor(elements)) {}

  /// Whether an element has no member yet.
  bool hasUnmatched() const
  {
    return std::visit([](const auto& search) { return search.hasUnmatched(); }, m_search);
  }

  /// See HashSearch.
  template <class Matched>
  void match(const std::vector<T>& members, Matched matched)
  {
    std::visit([&](auto& search) { search.match(members, matched); }, m_search);
  }

  /// See HashSearch.
  std::size_t pieceSize() const
  {
    return std::visit([](const auto& search) { return search.pieceSize(); }, m_search);
  }

  /// See HashSearch.
  template <class Matched>
  void
  matchPiece(const std::vector<T>& members, std::size_t begin, std::size_t end, Matched matched)
  {
    std::visit([&](auto& search) { search.matchPiece(members, begin, end, matched); }, m_search);
  }

  /// See HashSearch.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members)
  {
    return std::visit([&](auto& search) { return search.firstPositions(members); }, m_search);
  }

private:
  using Either = std::conditional_t<Hashable<T>,
                                    std::variant<ComparingSearch<T>, HashSearch<T>>,
                                    std::variant<ComparingSearch<T>>>;

  static Either chosenFor(const std::vector<T>& elements)
  {
    if constexpr (Hashable<T>) {
      if (areHashed(elements.size()))
        return Either(std::in_place_type<HashSearch<T>>, elements);
    }
    return Either(std::in_place_type<ComparingSearch<T>>, elements);
  }

  Either m_search;
};

}
