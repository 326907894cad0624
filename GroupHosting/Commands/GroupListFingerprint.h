// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/Identifier.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Tarvik::GroupLists {

/// Spreads every bit of a number over all bits of the result.
inline std::uint64_t mixed(std::uint64_t number)
{
  number = (number ^ number >> 32U) * 0xd6e8feb86659fd93;
  number = (number ^ number >> 32U) * 0xd6e8feb86659fd93;
  return number ^ number >> 32U;
}

/// The sum of hashes in their order.
inline std::uint64_t continued(std::uint64_t fingerprint, std::uint64_t next)
{
  return std::rotl(fingerprint ^ next, 27) * 0x9e3779b97f4a7c15;
}

template <class T>
std::uint64_t fingerprintOf(const std::vector<T>& members)
{
  std::uint64_t fingerprint = members.size();
  if constexpr (Hashable<T>) {
    std::size_t i = 0;
    for (; i + 4 <= members.size(); i += 4) { // the processor works on four hashes at once
      const auto next = ElementTable<T>::hashOf(members[i]) +
                        std::rotl(ElementTable<T>::hashOf(members[i + 1]), 16) +
                        std::rotl(ElementTable<T>::hashOf(members[i + 2]), 32) +
                        std::rotl(ElementTable<T>::hashOf(members[i + 3]), 48);
      fingerprint = continued(fingerprint, next);
    }
    for (; i < members.size(); ++i)
      fingerprint = continued(fingerprint, ElementTable<T>::hashOf(members[i]));
  }
  return fingerprint;
}

/// Id, name and members, as far as they have a hash.
template <class T>
std::uint64_t fingerprintOf(const TKGroup<T>& group)
{
  auto fingerprint = continued(fingerprintOf(group.getGroupMembers()),
                               mixed(std::hash<std::string>{}(group.getName())));
  if constexpr (Hashable<Identifier>)
    fingerprint = continued(fingerprint, ElementTable<Identifier>::hashOf(group.getId()));
  return mixed(fingerprint);
}

/// A number that tells lists of groups apart: two that differ have the same one in one of 2^64
/// cases. It sees what has a `std::hash`, and in any case the number of groups, their names and
/// their numbers of members. Differs from process to process. Not for hosts.
class GroupListFingerprint {
public:
  /// Adds the group at a position. The order of the calls does not matter.
  void add(std::size_t position, std::uint64_t fingerprintOfGroup)
  {
    m_sum += mixed(continued(fingerprintOfGroup, position));
  }

  friend bool operator==(const GroupListFingerprint& a, const GroupListFingerprint& b)
  {
    return a.m_sum == b.m_sum;
  }

private:
  std::uint64_t m_sum = 0;
};

}
