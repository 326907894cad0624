// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"

#include <QtGui/QColor>

#include <cstddef>
#include <unordered_map>

namespace Tarvik::PointCollections {

/// Gives each group a colour, which it keeps whatever happens to the list: when groups change their
/// order, when others come and go, and when it comes back by undo.
class GroupColours {
public:
  /// The colour of a group; a new one for a group that had none. Neighbours in the order of asking
  /// differ clearly, on a light background and on a dark one.
  QColor of(const Identifier& groupId);

  /// The colour of elements without a group.
  static QColor ofUngrouped() { return {0x8a, 0x8f, 0x98}; }

private:
  std::unordered_map<Identifier, std::size_t> m_numbers;
};

}
