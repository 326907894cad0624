// SPDX-License-Identifier: MIT
#include "Support/Documents.h"

#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Quoting.h"
#include "Support/Require.h"

#include <algorithm>
#include <unordered_set>

namespace Tarvik::PointCollections {

DocumentState stateOf(PointDocument& document)
{
  DocumentState state{document.order(), {}};
  for (const auto& group : document.getGroups())
    state.groups.push_back({group.getName(), group.getId(), group.getGroupMembers()});
  return state;
}

void requireWhole(const PointDocument& document)
{
  const auto& order = document.order();
  const std::unordered_set<GUIdentifier> ids(order.begin(), order.end());
  require(ids.size() == order.size(), "an element that is in the order twice");
  require(std::ranges::all_of(order, [&](const auto& id) { return document.find(id) != nullptr; }),
          "an element in the order that the document does not have");
}

void requireSavable(PointDocument& document)
{
  const auto bytes = saveProject(document);
  const auto loaded = loadProject(bytes, "saved.tkpc");
  require(stateOf(*loaded) == stateOf(document), "saved and loaded, the document differs");
  for (const auto& id : document.order()) {
    const auto& before = *document.find(id);
    const auto& after = *loaded->find(id);
    require(before.name == after.name && before.points == after.points,
            "saved and loaded, an element differs");
  }
  require(saveProject(*loaded) == bytes, "saved and loaded, the bytes differ");
}

void requireShowable(std::string_view text)
{
  require(printable(text) == text, "a text with control characters, or that is not UTF-8");
}

}
