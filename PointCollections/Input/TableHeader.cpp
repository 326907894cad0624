// SPDX-License-Identifier: MIT
#include "PointCollections/Input/TableHeader.h"

#include "PointCollections/Input/CsvReader.h"
#include "PointCollections/Input/Encoding.h"
#include "PointCollections/Input/Number.h"
#include "PointCollections/Input/PointColumns.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t mostRowsToLookAt = 5;

/// How many of the names of a file of points are in the header.
std::size_t countKnown(const TableHeader& header)
{
  const auto columns = columnsByName(header);
  const std::array found = {columns.collection, columns.x,     columns.y,
                            columns.z,          columns.group, columns.place};
  return static_cast<std::size_t>(std::count_if(
      found.begin(), found.end(), [](const auto& column) { return column.has_value(); }));
}

bool hasNumber(const TableHeader& header)
{
  return std::any_of(header.columns.begin(), header.columns.end(), [](const auto& field) {
    return parseNumber(field).kind != ParsedNumber::Kind::NotANumber;
  });
}

/// The first rows that can be read; a mistake further below is found later.
std::vector<std::vector<std::string>> firstRows(CsvReader csv)
{
  std::vector<std::vector<std::string>> rows;
  try {
    for (std::vector<std::string> row; rows.size() < mostRowsToLookAt && csv.readRow(row);)
      rows.push_back(row);
  } catch (const UserError&) {
    return rows;
  }
  return rows;
}

/// @param text  that has been checked
TableHeader headerOf(std::string_view text, const std::string& name, char separator)
{
  CsvReader csv(text, name, separator);
  const auto start = csv;
  TableHeader header = {.separator = separator};
  if (!csv.readRow(header.columns))
    csv.fail(translated("the file is empty; expected the header collection,x,y,z"));
  for (auto& column : header.columns)
    column = std::string(trimmed(column));
  header.line = csv.rowLine();
  header.hasNames = countKnown(header) > 0 || !hasNumber(header);
  header.firstRows = firstRows(header.hasNames ? csv : start);
  return header;
}

/// Nothing if the first row cannot be read with that separator.
std::optional<TableHeader> tryHeader(std::string_view text, const std::string& name, char separator)
{
  try {
    return headerOf(text, name, separator);
  } catch (const UserError&) {
    return std::nullopt;
  }
}

}

TableHeader readHeader(std::string_view text, const std::string& name, char separator)
{
  return headerOf(checkedUtf8(text, name), name, separator);
}

TableHeader findHeader(std::string_view text, const std::string& name)
{
  const auto checked = checkedUtf8(text, name);
  auto best = tryHeader(checked, name, ',');
  for (const char separator : {';', '\t'}) {
    auto other = tryHeader(checked, name, separator);
    const auto rank = [](const TableHeader& header) {
      return std::pair(countKnown(header), header.columns.size());
    };
    if (other && (!best || rank(*other) > rank(*best)))
      best = std::move(other);
  }
  return best ? *std::move(best) : headerOf(checked, name, ','); // which tells the mistake
}

}
