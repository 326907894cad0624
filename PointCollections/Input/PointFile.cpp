// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointFile.h"

#include "PointCollections/Input/CsvReader.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>
#include <unordered_map>

namespace Tarvik::PointCollections {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr auto header = "collection,x,y,z";
const std::vector<std::string> columns = {"collection", "x", "y", "z"};

std::string_view trimmed(std::string_view text)
{
  const std::size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos)
    return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

/// Removes a plus sign, which people write but std::from_chars refuses.
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
  const char* end = digits.data() + digits.size();
  double value = 0;
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
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

void checkHeader(CsvReader& csv, std::vector<std::string>& fields)
{
  if (!csv.readRow(fields))
    csv.fail(fmt::format("the file is empty; expected the header {}", header));
  const bool isHeader =
      std::equal(fields.begin(), fields.end(), columns.begin(), columns.end(),
                 [](const auto& field, const auto& column) { return trimmed(field) == column; });
  if (!isHeader)
    csv.fail(fmt::format("the header is missing; expected {}", header));
}

void checkRow(const CsvReader& csv, const std::vector<std::string>& fields)
{
  if (fields.size() != columns.size())
    csv.fail(fmt::format("{}; expected {} ({})", pluralize(fields.size(), "field"), columns.size(),
                         header));
  if (fields[0].empty())
    csv.fail("the element has no name; expected one, such as Berlin");
}

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

std::vector<PointCollection> parsePoints(std::string_view text, const std::string& name)
{
  if (text.starts_with(byteOrderMark))
    text.remove_prefix(byteOrderMark.size());
  checkEncoding(text, name);

  CsvReader csv(text, name);
  std::vector<std::string> fields;
  checkHeader(csv, fields);

  std::vector<PointCollection> collections;
  std::unordered_map<std::string, std::size_t> places;
  while (csv.readRow(fields)) {
    checkRow(csv, fields);
    const Point point = {parseNumber(csv, columns[1], fields[1]),
                         parseNumber(csv, columns[2], fields[2]),
                         parseNumber(csv, columns[3], fields[3])};
    const auto [place, isNew] = places.try_emplace(fields[0], collections.size());
    if (isNew)
      collections.push_back({.id = GUIdentifier(), .name = fields[0], .points = {}});
    collections[place->second].points.push_back(point);
  }
  return collections;
}

std::vector<PointCollection> readPointFile(const std::filesystem::path& path)
{
  return parsePoints(readText(path), printable(Utf8::fromPath(path)));
}

}
