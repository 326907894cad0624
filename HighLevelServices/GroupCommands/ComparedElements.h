// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <vector>

namespace Tarvik::GroupLists {

/// Does what HashedElements does, but without a hash: for identifiers that have none, and for few
/// elements. One element after another is compared with a piece of the members that fits into the
/// cache.
template <class T>
class ComparedElements {
public:
  /// @param elements  must outlive this object and must not change
  explicit ComparedElements(const std::vector<T>& elements);

  /// See HashedElements.
  bool isAnyWanting() const { return !m_wanting.empty(); }

  /// See HashedElements.
  template <class Taken>
  void take(const std::vector<T>& members, Taken taken);

  /// See HashedElements.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members) const;

private:
  static constexpr std::size_t pieceSize =
      (std::max)(std::size_t{16384} / sizeof(T), std::size_t{1});

  const std::vector<T>* m_elements;
  std::vector<std::size_t> m_wanting; ///< in their order
};

template <class T>
ComparedElements<T>::ComparedElements(const std::vector<T>& elements) : m_elements(&elements)
{
  m_wanting.resize(elements.size());
  std::iota(m_wanting.begin(), m_wanting.end(), std::size_t{0});
}

template <class T>
template <class Taken>
void ComparedElements<T>::take(const std::vector<T>& members, Taken taken)
{
  std::array<std::size_t, pieceSize> takenBy;
  for (std::size_t begin = 0; begin < members.size() && isAnyWanting(); begin += pieceSize) {
    const auto size = (std::min)(pieceSize, members.size() - begin);
    const T* const piece = &members[begin];
    std::fill_n(takenBy.begin(), size, nowhere);
    std::size_t firstFree = 0;
    const auto takesOne = [&](std::size_t element) {
      while (firstFree < size && takenBy[firstFree] != nowhere)
        ++firstFree;
      for (std::size_t i = firstFree; i < size; ++i) {
        if (piece[i] == (*m_elements)[element] && takenBy[i] == nowhere) {
          takenBy[i] = element;
          return true;
        }
      }
      return false;
    };
    m_wanting.erase(std::remove_if(m_wanting.begin(), m_wanting.end(), takesOne), m_wanting.end());
    for (std::size_t i = 0; i < size; ++i) {
      if (takenBy[i] != nowhere)
        taken(begin + i, takenBy[i]);
    }
  }
}

template <class T>
std::vector<std::size_t> ComparedElements<T>::firstPositions(const std::vector<T>& members) const
{
  std::vector<std::size_t> positions(m_elements->size(), nowhere);
  for (auto begin = members.begin(); begin != members.end();) {
    const auto end = begin + (std::min<std::ptrdiff_t>)(pieceSize, members.end() - begin);
    for (std::size_t i = 0; i < positions.size(); ++i) {
      if (positions[i] != nowhere)
        continue;
      const auto found = std::find(begin, end, (*m_elements)[i]);
      if (found != end)
        positions[i] = static_cast<std::size_t>(found - members.begin());
    }
    begin = end;
  }
  return positions;
}

}
