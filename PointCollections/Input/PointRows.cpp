// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointRows.h"

#include "PointCollections/Input/Number.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <algorithm>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

using Kind = ParsedNumber::Kind;

bool isEmpty(std::string_view field)
{
  return trimmed(field).empty();
}

/// The number that was meant by one with a decimal comma; empty if there is none.
std::string withDecimalPoint(std::string_view field)
{
  auto number = std::string(trimmed(field));
  std::replace(number.begin(), number.end(), ',', '.');
  return parseNumber(number).kind == Kind::Valid ? number : std::string();
}

std::string shownField(const std::string& field)
{
  return inQuotes(abbreviated(field, 60));
}

/// What is wrong with the number in a column, and what would be right.
std::string mistakeIn(Kind kind, const char* column, const std::string& field)
{
  const auto shown = shownField(field);
  switch (kind) {
  case Kind::TooLarge:
    // For translators: the first {} is the name of a column: x, y or z
    return translated("{} is {}, which is out of range; expected at most 1.7e308", column, shown);
  case Kind::NotFinite:
    // For translators: the first {} is the name of a column: x, y or z
    return translated("{} is {}, which is not finite; expected e.g. 12.5", column, shown);
  default:
    break;
  }
  const auto meant = withDecimalPoint(field);
  return meant.empty()
             // For translators: the first {} is the name of a column: x, y or z
             ? translated("{} is {}, which is not a number; expected e.g. 12.5", column, shown)
             // For translators: the first {} is the name of a column: x, y or z
             : translated("{} is {}, which is not a number; expected a decimal point, as in {}",
                          column, shown, meant);
}

/// How many fields a row has, for a message, with the names of the columns if the header tells
/// them.
std::string fieldsIn(const TableHeader& header)
{
  auto fields = std::to_string(header.columns.size());
  if (!header.hasNames)
    return fields;
  std::string names;
  for (const auto& column : header.columns)
    names += (names.empty() ? "" : ",") + column;
  return fields + " (" + printable(abbreviated(names, 60)) + ")";
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
  if (m_fields.size() != m_header.columns.size())
    // For translators: the second {} is a number, and may have names after it: "4 (a,x,y,z)"
    m_csv.fail(translatedCount(m_fields.size(), "{} field; expected {}", "{} fields; expected {}",
                               fieldsIn(m_header)));
  add();
  return true;
}

std::string PointRows::warning() const
{
  if (m_vanished < 2)
    return m_firstVanished;
  return m_firstVanished +
         // For translators: follows a text that ends in "which is too close to 0 for this program;
         // it is read as 0"
         translatedCount(m_vanished - 1, "; so is {} more number", "; so are {} more numbers");
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
    m_csv.fail(translated("the element has no name; expected one, such as Berlin"));
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
  if (kind != Kind::TooSmall)
    m_csv.fail(mistakeIn(kind, name, text));
  if (m_vanished++ == 0)
    m_firstVanished = m_csv.inRow(
        translated("{} is {}, which is too close to 0 for this program; it is read as 0", name,
                   shownField(text)));
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
    m_csv.fail(translated("a place without a group; expected the name of the group, too"));
  if (!m_groups.add(m_csv, collection.id, group, std::string(trimmed(field(m_columns.place)))))
    return;
  m_placesInGroups.resize(m_collections.size());
  auto& places = m_placesInGroups[static_cast<std::size_t>(&collection - m_collections.data())];
  if (places < 2 && ++places == 2)
    ++m_repeatedMembers;
}

}
