// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Input/PointColumns.h"
#include "PointCollections/Input/TableHeader.h"

#include <QtCore/QString>

#include <functional>

namespace Tarvik::PointCollections {

/// A table of points whose header does not tell which columns are meant.
struct UnknownTable {
  /// What a user has chosen for it.
  struct Choice {
    TableHeader header;
    PointColumns columns;
  };

  QString why; ///< what was found, and what was expected
  TableHeader header;

  /// Looks at the table with another separator. Throws std::exceptions if that cannot be.
  std::function<TableHeader(char separator)> readAgain;
};

}
