// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"

#include <cstddef>
#include <string>

/// The groups and the ungrouped elements as JSON, for other programs. Elements are given by their
/// names; a member that is not in the document is null.
namespace Tarvik::PointCollections {

/// The title, all groups with their members, and the ungrouped elements.
std::string documentAsJson(const Session& session);

/// The groups with their places, names and numbers of members.
std::string groupsAsJson(const Session& session);

/// One group with its members.
/// @param index  in the list of groups
std::string groupAsJson(const Session& session, std::size_t index);

/// The ungrouped elements.
std::string ungroupedAsJson(const Session& session);

}
