// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Whereabouts.h"

#include "PointCollections/Console/Text/Tree.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t withoutLimit = std::numeric_limits<std::size_t>::max();
constexpr std::size_t pointsOfEach = 3; ///< when there are several elements

/// An element, its groups and at most so many of its points, each on a line.
Tree treeOf(const Session& session,
            const PointCollection& collection,
            const Whereabouts& whereabouts,
            std::size_t mostPoints)
{
  Tree tree = {session.style.strong(listedName(collection.name))};
  auto places = whereabouts.of(collection);
  const auto shown = std::min(mostPoints, collection.points.size());
  tree.branches.reserve(places.size() + shown + 1);
  for (auto& place : places)
    tree.branches.push_back({std::move(place)});
  for (std::size_t i = 0; i < shown; ++i) {
    const auto& [x, y, z] = collection.points[i];
    tree.branches.push_back({fmt::format("({}, {}, {})", x, y, z)});
  }
  if (shown < collection.points.size())
    tree.branches.push_back({session.style.faint(translatedCount(
        collection.points.size() - shown, "… and {} more point", "… and {} more points"))});
  return tree;
}

void writePoints(JsonWriter& json, const std::vector<Point>& points)
{
  json.key("points").beginArray();
  for (const auto& [x, y, z] : points)
    json.beginArray().value(x).value(y).value(z).endArray();
  json.endArray();
}

}

Whereabouts::Whereabouts(PointDocument& document) : m_document(document), m_memberships(document)
{
  for (const auto& group : document.getGroups())
    m_groupNames.push_back(displayName(group.getName()));
}

std::vector<std::string> Whereabouts::of(const PointCollection& collection) const
{
  std::vector<std::string> places;
  for (const auto& [group, place] : m_memberships.of(collection)) {
    // For translators: place 5 of 9 in Europe (@2). The user may type @2 for Europe.
    places.push_back(translated("place {} of {} in {} (@{})", place + 1,
                                m_document.getGroups()[group].getGroupMembers().size(),
                                m_groupNames[group], group + 1));
  }
  if (places.empty()) {
    // For translators: of one element: it is in no group.
    places.push_back(translated("ungrouped"));
  }
  return places;
}

void Whereabouts::write(JsonWriter& json, const PointCollection& collection) const
{
  json.beginArray();
  for (const auto& [group, place] : m_memberships.of(collection)) {
    json.beginObject();
    json.key("place").value(group + 1);
    json.key("name").value(m_document.getGroups()[group].getName());
    json.key("member").value(place + 1);
    json.endObject();
  }
  json.endArray();
}

std::string describeElements(const Session& session, const std::vector<GUIdentifier>& elements)
{
  auto& document = *session.editor.document();
  const Whereabouts whereabouts(document);
  const bool isOne = elements.size() == 1;
  Tree tree = {countOfElements(elements.size())};
  tree.branches.reserve(elements.size());
  for (const auto& element : elements) {
    checkInterruption();
    if (const auto* collection = document.find(element))
      tree.branches.push_back(
          treeOf(session, *collection, whereabouts, isOne ? withoutLimit : pointsOfEach));
  }
  auto drawing = drawTree(isOne && !tree.branches.empty() ? tree.branches.front() : tree);
  drawing.pop_back(); // the last line end
  return drawing;
}

void writeElements(JsonWriter& json,
                   const Session& session,
                   const std::vector<GUIdentifier>& elements)
{
  auto& document = *session.editor.document();
  const Whereabouts whereabouts(document);
  json.beginArray();
  for (const auto& element : elements) {
    checkInterruption();
    const auto* collection = document.find(element);
    if (collection == nullptr)
      continue;
    json.beginObject();
    json.key("name").value(collection->name);
    whereabouts.write(json.key("groups"), *collection);
    writePoints(json, collection->points);
    json.endObject();
  }
  json.endArray();
}

void writeName(JsonWriter& json, const PointDocument& document, const GUIdentifier& element)
{
  if (const auto* collection = document.find(element))
    json.value(collection->name);
  else
    json.null();
}

}
