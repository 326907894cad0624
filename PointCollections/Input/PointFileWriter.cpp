// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointFileWriter.h"

#include "PointCollections/Document/Memberships.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

using Groups = std::vector<TKGroup<GUIdentifier>>;

void checkNames(const Groups& groups)
{
  std::unordered_set<std::string_view> names;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const auto& name = groups[i].getName();
    if (name.empty())
      throw UserError(translated("the group @{0} has no name, which a file of points cannot tell; "
                                 "rename @{0} first",
                                 i + 1));
    if (!names.insert(name).second)
      throw UserError(translated("several groups have the name {}, which a file of points cannot "
                                 "tell; rename @{} first",
                                 displayName(name), i + 1));
  }
}

/// A field, in quotes if it needs them.
std::string field(std::string_view text)
{
  const bool isPlain = text.find_first_of(",\"\r\n") == std::string_view::npos &&
                       !text.starts_with(' ') && !text.ends_with(' ');
  if (isPlain)
    return std::string(text);
  std::string result = "\"";
  for (const char c : text)
    result.append(c == '"' ? 2 : 1, c);
  return result + '"';
}

/// Whether the groups come in the order of the list if each comes where it is named first.
bool areInOrder(const PointDocument& document, const Groups& groups, const Memberships& memberships)
{
  std::vector<bool> isNamed(groups.size());
  std::size_t next = 0;
  for (const auto& element : document.order()) {
    for (const auto& [group, place] : memberships.of(*document.find(element))) {
      if (isNamed[group])
        continue;
      if (group != next++)
        return false;
      isNamed[group] = true;
    }
  }
  return next == groups.size();
}

/// The rows of one element: one for each point, or for each group if it is in more groups.
void appendRows(std::string& text,
                const PointCollection& collection,
                const Groups& groups,
                std::span<const Membership> memberships)
{
  const auto& points = collection.points;
  const auto rows = std::max({std::size_t(1), points.size(), memberships.size()});
  for (std::size_t i = 0; i < rows; ++i) {
    const auto out = std::back_inserter(text);
    text += field(collection.name);
    if (i < points.size())
      fmt::format_to(out, ",{},{},{}", points[i].x, points[i].y, points[i].z);
    else
      text += ",,,";
    if (memberships.empty()) {
      text += ",,\n";
    } else {
      const auto& [group, place] = memberships[std::min(i, memberships.size() - 1)];
      fmt::format_to(out, ",{},{}\n", field(groups[group].getName()), place + 1);
    }
  }
}

}

std::string pointFileOf(PointDocument& document)
{
  const auto& groups = document.getGroups();
  checkNames(groups);
  const Memberships memberships(document);
  std::string text = "collection,x,y,z,group,place\n";
  if (!areInOrder(document, groups, memberships)) {
    for (const auto& group : groups)
      text += fmt::format(",,,,{},\n", field(group.getName()));
  }
  for (const auto& element : document.order()) {
    const auto& collection = *document.find(element);
    appendRows(text, collection, groups, memberships.of(collection));
  }
  return text;
}

}
