// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointColumns.h"

#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t neededColumns = 4;

char lowered(char c)
{
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isNamed(std::string_view column, std::string_view name)
{
  return std::equal(column.begin(), column.end(), name.begin(), name.end(),
                    [](char a, char b) { return lowered(a) == b; });
}

std::optional<std::size_t> findColumn(const TableHeader& header, std::string_view name)
{
  const auto& columns = header.columns;
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const auto& column) { return isNamed(column, name); });
  if (!header.hasNames || found == columns.end())
    return std::nullopt;
  return static_cast<std::size_t>(found - columns.begin());
}

bool isTwice(const TableHeader& header, std::string_view name)
{
  return std::count_if(header.columns.begin(), header.columns.end(),
                       [&](const auto& column) { return isNamed(column, name); }) > 1;
}

/// What is in the first row, as a part of a message.
std::string whatIsFound(const TableHeader& header)
{
  constexpr std::size_t mostColumns = 8;
  constexpr std::size_t mostCharacters = 30;
  std::vector<std::string> names;
  for (std::size_t i = 0; i < std::min(mostColumns, header.columns.size()); ++i)
    names.push_back(asTyped(abbreviated(header.columns[i], mostCharacters)));
  if (header.columns.size() > mostColumns)
    // For translators: the last item of a list, as in "x, y and 2 more"
    names.push_back(translatedCount(header.columns.size() - mostColumns, "{} more", "{} more"));
  if (header.columns.size() == 1)
    // For translators: follows what is wrong with a table, and names what its first row has
    return translated("; found only {}", names.front());
  if (header.separator == ';')
    // For translators: follows what is wrong with a table, and names what its first row has
    return translated("; found {}, separated by semicolons", listedWithAnd(names));
  if (header.separator == '\t')
    // For translators: follows what is wrong with a table, and names what its first row has
    return translated("; found {}, separated by tabs", listedWithAnd(names));
  // For translators: follows what is wrong with a table, and names what its first row has
  return translated("; found {}, separated by commas", listedWithAnd(names));
}

std::vector<std::string> missingColumns(const TableHeader& header)
{
  std::vector<std::string> missing;
  std::copy_if(pointColumnNames.begin(), pointColumnNames.begin() + neededColumns,
               std::back_inserter(missing),
               [&](const auto* name) { return !findColumn(header, name); });
  return missing;
}

[[noreturn]] void
refuse(const TableHeader& header, const std::string& name, const std::string& mistake)
{
  // For translators: follows what is wrong with a table, and what was found in it
  const auto expected = translated("; expected the columns collection, x, y and z in any order, "
                                   "separated by commas, semicolons or tabs");
  throw UnknownColumns(
      fmt::format("{}:{}: {}{}{}", name, header.line, mistake, whatIsFound(header), expected),
      header);
}

}

PointColumns columnsByName(const TableHeader& header)
{
  const auto& names = pointColumnNames;
  return {.collection = findColumn(header, names[0]),
          .x = findColumn(header, names[1]),
          .y = findColumn(header, names[2]),
          .z = findColumn(header, names[3]),
          .group = findColumn(header, names[4]),
          .place = findColumn(header, names[5])};
}

PointColumns requiredColumns(const TableHeader& header, const std::string& name)
{
  const auto missing = missingColumns(header);
  if (!header.hasNames)
    refuse(header, name, translated("the header is missing"));
  if (!missing.empty())
    refuse(header, name,
           // For translators: {1} is a name, or a list of names; their number {0} need not be told
           translatedCount(missing.size(), "the header has no column {1}",
                           "the header has no columns {1}", listedWithAnd(missing)));
  for (const auto* column : pointColumnNames) {
    if (isTwice(header, column))
      refuse(header, name, translated("the header has the column {} twice", column));
  }
  return columnsByName(header);
}

}
