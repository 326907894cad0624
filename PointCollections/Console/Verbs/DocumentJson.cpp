// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/DocumentJson.h"

#include "PointCollections/Console/Verbs/Whereabouts.h"

namespace Tarvik::PointCollections {
namespace {

void writeNames(JsonWriter& json,
                const PointDocument& document,
                const std::vector<GUIdentifier>& elements)
{
  json.beginArray();
  for (const auto& element : elements)
    writeName(json, document, element);
  json.endArray();
}

void writeGroup(JsonWriter& json, PointDocument& document, std::size_t index, bool hasMembers)
{
  const auto& group = document.getGroups()[index];
  json.beginObject();
  json.key("place").value(index + 1);
  json.key("name").value(group.getName());
  json.key("count").value(group.getGroupMembers().size());
  if (hasMembers)
    writeNames(json.key("members"), document, group.getGroupMembers());
  json.endObject();
}

void writeGroups(JsonWriter& json, PointDocument& document, bool haveMembers)
{
  json.key("groups").beginArray();
  for (std::size_t i = 0; i < document.getGroups().size(); ++i)
    writeGroup(json, document, i, haveMembers);
  json.endArray();
}

}

std::string documentAsJson(const Session& session)
{
  auto& document = *session.editor.document();
  JsonWriter json;
  json.beginObject().key("title").value(session.editor.title());
  writeGroups(json, document, true);
  writeNames(json.key("ungrouped"), document, document.ungroupedElements());
  return json.endObject().text();
}

std::string groupsAsJson(const Session& session)
{
  JsonWriter json;
  json.beginObject();
  writeGroups(json, *session.editor.document(), false);
  return json.endObject().text();
}

std::string groupAsJson(const Session& session, std::size_t index)
{
  JsonWriter json;
  writeGroup(json, *session.editor.document(), index, true);
  return json.text();
}

std::string ungroupedAsJson(const Session& session)
{
  auto& document = *session.editor.document();
  JsonWriter json;
  json.beginObject();
  writeNames(json.key("ungrouped"), document, document.ungroupedElements());
  return json.endObject().text();
}

}
