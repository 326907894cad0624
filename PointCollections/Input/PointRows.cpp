// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointRows.h"

#include "PointCollections/Input/Number.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

using Kind = ParsedNumber::Kind;

bool isEmpty(std::string_view field)
{
  return trimmed(field).empty();
}

/// What to write in place of something that is no number.
std::string exampleFor(std::string_view field)
{
  auto number = std::string(trimmed(field));
  std::replace(number.begin(), number.end(), ',', '.');
  return parseNumber(number).kind == Kind::Valid ? "a decimal point, as in " + number : "e.g. 12.5";
}

/// What is wrong with the number, and what would be right.
std::string mistakeIn(Kind kind, std::string_view field)
{
  switch (kind) {
  case Kind::TooLarge:
    return "is out of range; expected at most 1.7e308";
  case Kind::NotFinite:
    return "is not finite; expected e.g. 12.5";
  default:
    return "is not a number; expected " + exampleFor(field);
  }
}

/// The names of the columns, for a message; empty if the header does not tell them.
std::string namesIn(const TableHeader& header)
{
  if (!header.hasNames)
    return {};
  std::string names;
  for (const auto& column : header.columns)
    names += (names.empty() ? "" : ",") + column;
  return " (" + printable(abbreviated(names, 60)) + ")";
}

}

PointRows::PointRows(CsvReader& csv, const TableHeader& header, const PointColumns& columns)
    : m_csv(csv), m_header(header), m_columns(columns)
{
  if (!m_columns.group)
    m_columns.place.reset();
}

bool PointRows::readRow()
{
  if (!m_csv.readRow(m_fields))
    return false;
  const auto expected = m_header.columns.size();
  if (m_fields.size() != expected)
    m_csv.fail(fmt::format("{}; expected {}{}", pluralize(m_fields.size(), "field"), expected,
                           namesIn(m_header)));
  add();
  return true;
}

std::string PointRows::warning() const
{
  if (m_vanished < 2)
    return m_firstVanished;
  return fmt::format("{}; so {} {}", m_firstVanished, m_vanished == 2 ? "is" : "are",
                     pluralize(m_vanished - 1, "more number"));
}

const std::string& PointRows::field(std::optional<std::size_t> column) const
{
  static const std::string none;
  return column ? m_fields[*column] : none;
}

/// Adds the last row.
void PointRows::add()
{
  const auto& name = field(m_columns.collection);
  const auto& group = field(m_columns.group);
  const bool hasPoint = !m_columns.group || !isEmpty(field(m_columns.x)) ||
                        !isEmpty(field(m_columns.y)) || !isEmpty(field(m_columns.z));
  if (name.empty() && !hasPoint && !group.empty()) {
    m_groups.declare(group);
    return;
  }
  if (name.empty())
    m_csv.fail("the element has no name; expected one, such as Berlin");
  auto& collection = collectionNamed(name);
  if (hasPoint) {
    const double x = coordinate("x", m_columns.x);
    const double y = coordinate("y", m_columns.y);
    const double z = coordinate("z", m_columns.z);
    collection.points.push_back({x, y, z});
  }
  if (!isEmpty(group) || !isEmpty(field(m_columns.place)))
    addToGroup(collection);
}

double PointRows::coordinate(const char* name, std::optional<std::size_t> column)
{
  const auto& text = field(column);
  const auto [kind, value] = parseNumber(text);
  if (kind == Kind::Valid)
    return value;
  const auto shown = fmt::format("{} is {}, which ", name, inQuotes(abbreviated(text, 60)));
  if (kind != Kind::TooSmall)
    m_csv.fail(shown + mistakeIn(kind, text));
  if (m_vanished++ == 0)
    m_firstVanished = m_csv.inRow(shown + "is too close to 0 for this program; it is read as 0");
  return 0;
}

PointCollection& PointRows::collectionNamed(const std::string& name)
{
  const auto [place, isNew] = m_places.try_emplace(name, m_collections.size());
  if (isNew)
    m_collections.push_back({.id = GUIdentifier(), .name = name, .points = {}});
  return m_collections[place->second];
}

void PointRows::addToGroup(const PointCollection& collection)
{
  const auto& group = field(m_columns.group);
  if (group.empty())
    m_csv.fail("a place without a group; expected the name of the group, too");
  if (!m_groups.add(m_csv, collection.id, group, std::string(trimmed(field(m_columns.place)))))
    return;
  m_placesInGroups.resize(m_collections.size());
  auto& places = m_placesInGroups[static_cast<std::size_t>(&collection - m_collections.data())];
  if (places < 2 && ++places == 2)
    ++m_repeatedMembers;
}

}
