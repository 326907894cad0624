// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Input/TableHeader.h"
#include "PointCollections/Text/UserError.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace Tarvik::PointCollections {

/// Which column of a table holds what, counted from 0. Columns that are not chosen are not read.
struct PointColumns {
  std::optional<std::size_t> collection; ///< needed, as x, y and z are
  std::optional<std::size_t> x;
  std::optional<std::size_t> y;
  std::optional<std::size_t> z;
  std::optional<std::size_t> group; ///< may be missing
  std::optional<std::size_t> place; ///< may be missing; not read without a group

  /// Whether all columns are chosen that are needed.
  bool isComplete() const { return collection && x && y && z; }

  friend bool operator==(const PointColumns& a, const PointColumns& b) = default;
};

/// The names of the columns in a file of points, in the order of PointColumns.
constexpr std::array<const char*, 6> pointColumnNames = {"collection", "x",     "y",
                                                         "z",          "group", "place"};

/// Chooses the columns by their names: collection, x, y, z, group and place, in capital or small
/// letters. What the header does not name is not chosen. Nothing is chosen if it has no names.
PointColumns columnsByName(const TableHeader& header);

/// The header of a table does not tell which columns are meant. A program with windows can ask the
/// user: the error has the header with it.
class UnknownColumns : public UserError {
public:
  /// @param message  what was found and what was expected
  UnknownColumns(const std::string& message, TableHeader header)
      : UserError(message), m_header(std::move(header))
  {}

  /// What was found.
  const TableHeader& header() const { return m_header; }

private:
  TableHeader m_header;
};

/// The columns by their names.
/// @param name  what error messages call the text
/// @throws UnknownColumns unless each column is named that is needed, and none twice
PointColumns requiredColumns(const TableHeader& header, const std::string& name);

}
