// SPDX-License-Identifier: MIT
#include "HighLevelServices/Model/RandomOperations.h"

#include "HighLevelServices/Model/Elements.h"

#include <array>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace Tarvik::Modelling {

namespace {

constexpr std::array groupNames{"",   " A ", "Group",       "group",   "Group 2",
                                "A",  "a",   "A 2",         "Group 9", "Group 10",
                                "B_", "Bz",  "\xC3\x84rger"};

/// Draws arguments. It uses no distribution of the standard library, since those give different
/// numbers on different platforms.
class Random {
public:
  Random(std::uint64_t seed, std::size_t crowd) : m_numbers(seed), m_crowd(static_cast<int>(crowd))
  {}

  int below(int bound) { return static_cast<int>(m_numbers() % static_cast<std::uint64_t>(bound)); }

  bool once(int in) { return below(in) == 0; }

  template <class Choices>
  auto oneOf(const Choices& choices)
  {
    return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
  }

  std::string name() { return oneOf(groupNames); }

  int group()
  {
    if (once(8))
      return once(3) ? invalidGroup : unknownGroup;
    return below(12);
  }

  int element()
  {
    if (m_crowd > 0)
      return numberOfElements + below(m_crowd);
    return once(6) ? below(numberOfElements) : below(knownElements);
  }

  Elements elements()
  {
    if (m_crowd > 0)
      return partOfCrowd();
    Elements result;
    const int size = once(10) ? 0 : 1 + below(4);
    while (static_cast<int>(result.size()) < size)
      result.push_back(!result.empty() && once(6) ? result.front() : element());
    return result;
  }

  std::optional<int> index()
  {
    if (once(4))
      return std::nullopt;
    if (once(12))
      return once(2) ? std::numeric_limits<int>::max() : std::numeric_limits<int>::min();
    return below(m_crowd > 0 ? m_crowd : 8) - 2;
  }

  HaveGroup haveGroup()
  {
    return {name(), elements(), once(6) ? std::optional(below(4)) : std::nullopt};
  }

  /// The bounds below give each kind its weight: of 100 operations, 12 create a group, 16 add
  /// elements, and so on. Adding and moving have the most rules, so they are the most frequent. A
  /// new kind takes its share from the others; every seed then gives other operations.
  Operation operation()
  {
    const int kind = below(100);
    if (kind < 12)
      return CreateGroup{elements(), name()};
    if (kind < 28)
      return AddElements{elements(), group(), index()};
    if (kind < 36)
      return RemoveElements{elements()};
    if (kind < 42)
      return RemoveGroups{groups()};
    if (kind < 46)
      return MoveGroups{groups(), group(), once(2)};
    if (kind < 50)
      return RenameGroup{group(), name()};
    if (kind < 66)
      return MoveElements{elements(), element(), once(2), !once(4)};
    if (kind < 74)
      return SortGroups{listing(), element()};
    if (kind < 87)
      return Undo{};
    if (kind < 95)
      return Redo{};
    return JumpTo{below(1000)};
  }

private:
  std::vector<int> groups()
  {
    std::vector<int> result;
    const int size = below(4);
    while (static_cast<int>(result.size()) < size)
      result.push_back(!result.empty() && once(4) ? result.front() : group());
    return result;
  }

  Listing listing()
  {
    constexpr std::array listings{Listing::AsTheyAre, Listing::AsTheyAre, Listing::Without,
                                  Listing::With, Listing::Twice};
    return oneOf(listings);
  }

  /// Elements here and there, or hundreds of successive ones. Some are given twice.
  Elements partOfCrowd()
  {
    Elements result;
    const int size = below(m_crowd);
    const bool areSuccessive = once(2);
    int successive = element();
    while (static_cast<int>(result.size()) < size) {
      result.push_back(areSuccessive ? successive : element());
      successive = result.size() % 100 == 0 ? element() : successive + 1;
      if (successive == numberOfElements + m_crowd)
        successive = numberOfElements;
    }
    return result;
  }

  std::mt19937_64 m_numbers;
  int m_crowd;
};

}

Operations randomOperations(std::uint64_t seed, std::size_t length, std::size_t crowd)
{
  Random random(seed, crowd);
  Operations operations;
  for (int groups = random.below(5); groups > 0; --groups)
    operations.push_back(random.haveGroup());
  while (length-- > 0)
    operations.push_back(random.operation());
  return operations;
}

}
