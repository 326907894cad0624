// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <string>
#include <string_view>
#include <vector>

/// What must be true of every document and of every text that the user reads.
namespace Tarvik::PointCollections {

/// All of a document that commands change.
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

/// The order holds elements of the document, each once.
void requireWhole(const PointDocument& document);

/// Saved and loaded, the document is equal, and so are its bytes when it is saved again.
void requireSavable(PointDocument& document);

/// The text is UTF-8 in one line without control characters, including those beyond ASCII.
void requireShowable(std::string_view text);

}
