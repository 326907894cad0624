// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Text/JsonWriter.h"
#include "PointCollections/Document/Memberships.h"

#include <string>
#include <vector>

/// Where elements are: in which groups, at which places, with which points.
namespace Tarvik::PointCollections {

/// Tells where elements are. Valid until the document changes.
class Whereabouts {
public:
  /// Looks at all groups once.
  explicit Whereabouts(PointDocument& document);

  /// "place 5 of 9 in Europe (@2)" for each group that holds the element; "ungrouped" if none does.
  std::vector<std::string> of(const PointCollection& collection) const;

  /// The same for other programs, as an array of objects.
  void write(JsonWriter& json, const PointCollection& collection) const;

private:
  PointDocument& m_document;
  Memberships m_memberships;
  std::vector<std::string> m_groupNames; ///< as messages show them
};

/// The elements with their groups and points: one tree, or a tree below each of several elements.
std::string describeElements(const Session& session, const std::vector<GUIdentifier>& elements);

/// The same for other programs, as an array of objects.
void writeElements(JsonWriter& json,
                   const Session& session,
                   const std::vector<GUIdentifier>& elements);

/// The name of an element; null if it is not in the document.
void writeName(JsonWriter& json, const PointDocument& document, const GUIdentifier& element);

}
