// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointFile.h"

#include "PointCollections/Input/CsvReader.h"
#include "PointCollections/Input/GroupColumns.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/DecimalNumber.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <system_error>
#include <unordered_map>

namespace Tarvik::PointCollections {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr auto header = "collection,x,y,z";
constexpr auto headerWithGroups = "collection,x,y,z,group,place";
const std::vector<std::string> columns = {"collection", "x", "y", "z", "group", "place"};
constexpr std::size_t columnsOfPoints = 4;

std::string_view trimmed(std::string_view text)
{
  const std::size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos)
    return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

/// Removes a plus sign, which people write but readDecimalNumber() refuses.
std::string_view withoutPlus(std::string_view number)
{
  const bool hasPlus = number.size() > 1 && number[0] == '+' && number[1] != '-';
  return number.substr(hasPlus ? 1 : 0);
}

std::string quoted(std::string_view field)
{
  return inQuotes(abbreviated(field, 60));
}

double parseNumber(const CsvReader& csv, const std::string& column, std::string_view field)
{
  const auto digits = withoutPlus(trimmed(field));
  const char* const end = digits.data() + digits.size();
  double value = 0;
  const auto [stop, error] = readDecimalNumber(digits, value);
  if (error == std::errc::result_out_of_range && stop == end)
    csv.fail(fmt::format("{} is {}, which is out of range; expected at most 1.7e308 and, unless "
                         "it is 0, at least 1e-307",
                         column, quoted(field)));
  if (error != std::errc() || stop != end)
    csv.fail(
        fmt::format("{} is {}, which is not a number; expected e.g. 12.5", column, quoted(field)));
  if (!std::isfinite(value))
    csv.fail(
        fmt::format("{} is {}, which is not finite; expected e.g. 12.5", column, quoted(field)));
  return value;
}

/// @return how many columns there are
std::size_t readHeader(CsvReader& csv, std::vector<std::string>& fields)
{
  if (!csv.readRow(fields))
    csv.fail(fmt::format("the file is empty; expected the header {}", header));
  const bool isHeader =
      (fields.size() == columnsOfPoints || fields.size() == columns.size()) &&
      std::equal(fields.begin(), fields.end(), columns.begin(),
                 [](const auto& field, const auto& column) { return trimmed(field) == column; });
  if (!isHeader)
    csv.fail(fmt::format("the header is missing; expected {}", header));
  return fields.size();
}

/// Reads the rows of a file of points, one after the other.
class RowReader {
public:
  explicit RowReader(CsvReader& csv) : m_csv(csv), m_columns(readHeader(csv, m_fields)) {}

  bool readRow()
  {
    if (!m_csv.readRow(m_fields))
      return false;
    if (m_fields.size() != m_columns)
      m_csv.fail(fmt::format("{}; expected {} ({})", pluralize(m_fields.size(), "field"), m_columns,
                             hasGroups() ? headerWithGroups : header));
    return true;
  }

  /// Adds the row to the content.
  void addTo(std::vector<PointCollection>& collections)
  {
    const bool hasPoint = !hasGroups() || !areEmpty(1, columnsOfPoints);
    if (m_fields[0].empty() && hasGroups() && !hasPoint && !m_fields[4].empty()) {
      m_groups.declare(m_fields[4]);
      return;
    }
    if (m_fields[0].empty())
      m_csv.fail("the element has no name; expected one, such as Berlin");
    auto& collection = collectionNamed(m_fields[0], collections);
    if (hasPoint)
      collection.points.push_back({coordinate(1), coordinate(2), coordinate(3)});
    if (hasGroups() && !areEmpty(4, columns.size()))
      addToGroup(collection);
  }

  std::vector<TKGroup<GUIdentifier>> groups() const { return m_groups.groups(); }

private:
  bool hasGroups() const { return m_columns > columnsOfPoints; }

  bool areEmpty(std::size_t first, std::size_t end) const
  {
    return std::all_of(m_fields.begin() + static_cast<std::ptrdiff_t>(first),
                       m_fields.begin() + static_cast<std::ptrdiff_t>(end),
                       [](const auto& field) { return trimmed(field).empty(); });
  }

  double coordinate(std::size_t column) const
  {
    return parseNumber(m_csv, columns[column], m_fields[column]);
  }

  PointCollection& collectionNamed(const std::string& name,
                                   std::vector<PointCollection>& collections)
  {
    const auto [place, isNew] = m_places.try_emplace(name, collections.size());
    if (isNew)
      collections.push_back({.id = GUIdentifier(), .name = name, .points = {}});
    return collections[place->second];
  }

  void addToGroup(const PointCollection& collection)
  {
    if (m_fields[4].empty())
      m_csv.fail("a place without a group; expected the name of the group before it");
    m_groups.add(m_csv, collection.id, m_fields[4], std::string(trimmed(m_fields[5])));
  }

  CsvReader& m_csv;
  std::vector<std::string> m_fields;
  std::size_t m_columns;
  std::unordered_map<std::string, std::size_t> m_places; ///< of collections, by name
  GroupColumns m_groups;
};

void checkEncoding(std::string_view text, const std::string& name)
{
  const std::size_t invalid = Utf8::findInvalid(text);
  if (invalid == std::string_view::npos)
    return;
  const auto before = text.substr(0, invalid);
  throw UserError(fmt::format("{}:{}: the byte {} is not UTF-8; save the file as UTF-8", name,
                              std::count(before.begin(), before.end(), '\n') + 1,
                              printable(text.substr(invalid, 1))));
}

}

PointFileContent parsePointFile(std::string_view text, const std::string& name)
{
  if (text.starts_with(byteOrderMark))
    text.remove_prefix(byteOrderMark.size());
  checkEncoding(text, name);

  CsvReader csv(text, name);
  RowReader rows(csv);
  PointFileContent content;
  while (rows.readRow())
    rows.addTo(content.collections);
  content.groups = rows.groups();
  return content;
}

std::vector<PointCollection> parsePoints(std::string_view text, const std::string& name)
{
  return parsePointFile(text, name).collections;
}

std::vector<PointCollection> readPointFile(const std::filesystem::path& path)
{
  return parsePoints(readText(path), printable(Utf8::fromPath(path)));
}

}
