// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Support/Documents.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// Project files for tests.
namespace Tarvik::PointCollections {

using Bytes = std::vector<std::byte>;
using Group = TKGroup<GUIdentifier>;

/// Everything in a document, bit by bit.
inline std::string everythingIn(PointDocument& document)
{
  std::string text;
  for (const auto& id : document.order()) {
    const auto& collection = *document.find(id);
    text += id.toString() + ' ' + collection.name + '\n';
    for (const auto& [x, y, z] : collection.points) {
      for (const double number : {x, y, z})
        text += ' ' + std::to_string(std::bit_cast<std::uint64_t>(number));
      text += '\n';
    }
  }
  for (const auto& group : document.getGroups()) {
    const bool isExpanded = document.expandedGroups().contains(group.getId());
    text += group.getId().toString() + ' ' + group.getName() + (isExpanded ? " expanded\n" : "\n");
    for (const auto& member : group.getGroupMembers())
      text += ' ' + member.toString() + '\n';
  }
  return text;
}

inline std::shared_ptr<PointDocument> load(std::span<const std::byte> bytes)
{
  return loadProject(bytes, "p.tkpc");
}

inline std::string mistakeInBytes(std::span<const std::byte> bytes)
{
  return mistakeIn([&] { load(bytes); });
}

/// Everything in the document that is loaded after this one was saved.
inline std::string everythingKept(PointDocument& document)
{
  return everythingIn(*load(saveProject(document)));
}

inline std::shared_ptr<PointDocument> smallDocument()
{
  auto document = PointDocument::create(
      {{.id = GUIdentifier(), .name = "a", .points = {{1, -2.5, 1e300}, {-0.0, 5e-324, 0.1}}},
       {.id = GUIdentifier(), .name = "b c", .points = {}},
       {.id = GUIdentifier(), .name = "Größe \"都市\"\n", .points = {{7, 8, 9}}}});
  Group members("first");
  members.addGroupMembersAtIndex({document->order()[2], document->order()[0]}, 0);
  document->setGroups({members, Group("first"), Group("")});
  document->setExpandedGroups({members.getId()});
  document->setOrder({document->order()[2], document->order()[0], document->order()[1]});
  return document;
}

/// An archive with a project whose content the test writes.
inline Bytes projectWith(const std::function<void(PersistenceArchiver&)>& writeContent)
{
  PersistenceArchiver archive;
  const auto start = static_cast<unsigned int>(archive.tellp() + 4);
  archive.mark_object_start(start, PersistenceArchiver::getHashForName("PointProject"));
  writeContent(archive);
  archive.mark_object_end(start, static_cast<unsigned int>(archive.tellp()));
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

}
