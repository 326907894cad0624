// SPDX-License-Identifier: MIT
#include "PointCollections/Export/GroupsTable.h"

#include <cstddef>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

void appendField(std::string& table, std::string_view text)
{
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    table += text;
    return;
  }
  table += '"';
  for (const auto character : text) {
    if (character == '"')
      table += '"';
    table += character;
  }
  table += '"';
}

void appendLine(std::string& table,
                std::string_view group,
                std::string_view place,
                std::string_view collection)
{
  appendField(table, group);
  table += ',';
  table += place;
  table += ',';
  appendField(table, collection);
  table += '\n';
}

}

std::string groupsAsCsv(PointDocument& document)
{
  std::string table = "group,place,collection\n";
  for (const auto& group : document.getGroups()) {
    std::size_t place = 0;
    for (const auto& member : group.getGroupMembers())
      appendLine(table, group.getName(), std::to_string(++place), document.getElementName(member));
    if (place == 0)
      appendLine(table, group.getName(), "", "");
  }
  return table;
}

}
