// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// What the beginning of a table in text form tells: what separates its fields, and the names of
/// its columns. It is a plain value, which a program may show to the user and change: see
/// PointColumns.
struct TableHeader {
  /// Between fields: a comma, a semicolon or a tab.
  char separator = ',';

  /// The fields of the first row, without blanks around them. Each row of the table has as many.
  std::vector<std::string> columns = {};

  /// Whether these fields are names. Otherwise the first row has points already.
  bool hasNames = true;

  /// The line of the text on which the first row starts, counted from 1.
  std::size_t line = 1;

  /// The first rows after the names, for the user to look at: five at most.
  std::vector<std::vector<std::string>> firstRows = {};
};

/// Looks at a table and finds the separator that fits: the one with which most of the columns have
/// names that a file of points has, and then the one with most columns. A field of the first row
/// that is a number means that the row has no names.
/// @param text  may start with a byte order mark
/// @param name  what error messages call the text
/// @throws UserError if the text is empty or not UTF-8, or its first row breaks the rules of
///         CsvReader
TableHeader findHeader(std::string_view text, const std::string& name);

/// Looks at a table with a separator that the user has chosen.
/// @throws UserError as findHeader() does
TableHeader readHeader(std::string_view text, const std::string& name, char separator);

}
