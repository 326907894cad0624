// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/Identifier.h"

namespace Tarvik {

/// On which side of a target something goes.
enum class Side { Before, After };

/// Where a new group goes in the list of groups.
struct GroupPlace {
  /// The ways to say where.
  enum class Kind {
    End,    ///< after all others
    Beside, ///< before or after another group; at the end if that is unknown
    Sorted, ///< before the first group whose name comes later, by the rules of
            ///< SortTKGroupsAlphabeticallyCmd
  };

  Kind kind = Kind::End;                          ///< how the place is given
  Identifier target = Identifier::getInvalidId(); ///< only for Kind::Beside
  Side side = Side::After;                        ///< only for Kind::Beside

  /// After all others.
  static GroupPlace atEnd() { return {}; }

  /// Where its name belongs.
  static GroupPlace sorted() { return {Kind::Sorted}; }

  /// Before or after a group.
  static GroupPlace beside(const Identifier& target, Side side)
  {
    return {Kind::Beside, target, side};
  }
};

}
