// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <string>
#include <string_view>
#include <vector>

/// What must hold for every document and every text that the user reads.
namespace Tarvik::PointCollections {

/// Everything in a document that commands can change.
struct DocumentState {
  struct Group {
    std::string name;
    Identifier id;
    std::vector<GUIdentifier> members;

    friend bool operator==(const Group& a, const Group& b) = default;
  };

  std::vector<GUIdentifier> order;
  std::vector<Group> groups;

  friend bool operator==(const DocumentState& a, const DocumentState& b) = default;
};

DocumentState stateOf(PointDocument& document);

/// The order must contain elements of the document only, each once.
void requireWhole(const PointDocument& document);

/// Saved and loaded, the document must be equal, and so must its bytes when it is saved again.
void requireSavable(PointDocument& document);

/// The text must be one line of UTF-8 without control characters, even those beyond ASCII.
void requireShowable(std::string_view text);

}
