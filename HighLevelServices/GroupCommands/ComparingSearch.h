// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace Tarvik::GroupLists {

/// Finds elements by comparing each with the members, in pieces of a list that stay in the cache.
/// For identifiers without a hash, and for few elements. Otherwise like HashSearch; not for hosts.
template <class T>
class ComparingSearch {
public:
  /// @param elements  must outlive the search and must not change
  explicit ComparingSearch(const std::vector<T>& elements);

  /// Whether an element has no member yet.
  bool hasUnmatched() const { return !m_unmatched.empty(); }

  /// See HashSearch.
  template <class Matched>
  void match(const std::vector<T>& members, Matched matched);

  /// How many members are compared with one element after another: so many that the start of each
  /// comparison does not count, and so few that they stay in the cache.
  static constexpr std::size_t pieceSize() { return 1024; } // 16 KB of the bundled identifiers

  /// See HashSearch.
  template <class Matched>
  void
  matchPiece(const std::vector<T>& members, std::size_t begin, std::size_t end, Matched matched);

  /// See HashSearch.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members) const;

private:
  bool matchIn(const T* piece, std::size_t size, std::size_t element);

  const std::vector<T>* m_elements;
  std::vector<std::size_t> m_unmatched;    ///< in their order
  std::vector<std::size_t> m_matchOfPiece; ///< by position: its element; empty before the first
};

template <class T>
ComparingSearch<T>::ComparingSearch(const std::vector<T>& elements)
    : m_elements(&elements), m_unmatched(elements.size())
{
  std::iota(m_unmatched.begin(), m_unmatched.end(), std::size_t{0});
}

template <class T>
template <class Matched>
void ComparingSearch<T>::match(const std::vector<T>& members, Matched matched)
{
  for (std::size_t begin = 0; begin < members.size() && hasUnmatched(); begin += pieceSize())
    matchPiece(members, begin, (std::min)(begin + pieceSize(), members.size()), matched);
}

template <class T>
template <class Matched>
void ComparingSearch<T>::matchPiece(const std::vector<T>& members,
                                    std::size_t begin,
                                    std::size_t end,
                                    Matched matched)
{
  m_matchOfPiece.clear();
  auto kept = m_unmatched.begin();
  for (const auto element : m_unmatched) {
    if (!matchIn(members.data() + begin, end - begin, element))
      *kept++ = element;
  }
  m_unmatched.erase(kept, m_unmatched.end());
  for (std::size_t i = 0; i < m_matchOfPiece.size(); ++i) {
    if (m_matchOfPiece[i] != nowhere)
      matched(begin + i, m_matchOfPiece[i]);
  }
}

/// Gives the element the first equal member of the piece that has none yet, if there is one.
template <class T>
bool ComparingSearch<T>::matchIn(const T* piece, std::size_t size, std::size_t element)
{
  const T* const end = piece + size;
  for (const T* member = piece; member != end; ++member) {
    member = std::find(member, end, (*m_elements)[element]);
    if (member == end)
      return false;
    m_matchOfPiece.resize(size, nowhere);
    auto& match = m_matchOfPiece[static_cast<std::size_t>(member - piece)];
    if (match == nowhere) {
      match = element;
      return true;
    }
  }
  return false;
}

template <class T>
std::vector<std::size_t> ComparingSearch<T>::firstPositions(const std::vector<T>& members) const
{
  std::vector<std::size_t> positions(m_elements->size(), nowhere);
  for (std::size_t begin = 0; begin < members.size(); begin += pieceSize()) {
    const T* const piece = members.data() + begin;
    const T* const end = piece + (std::min)(pieceSize(), members.size() - begin);
    for (std::size_t i = 0; i < positions.size(); ++i) {
      if (positions[i] != nowhere)
        continue;
      const T* const found = std::find(piece, end, (*m_elements)[i]);
      if (found != end)
        positions[i] = begin + static_cast<std::size_t>(found - piece);
    }
  }
  return positions;
}

}
