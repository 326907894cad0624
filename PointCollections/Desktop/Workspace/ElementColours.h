// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Points/GroupColours.h"
#include "PointCollections/Document/PointDocument.h"

#include <QtGui/QRgb>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Tarvik::PointCollections {

/// The elements of a document by number, which is their position in the list of collections, and
/// the colour of each: that of the first group that holds it. Follows the document; a change takes
/// time that grows with what it changes.
class ElementColours {
public:
  /// @param document  not null
  explicit ElementColours(std::shared_ptr<PointDocument> document);

  ElementColours(const ElementColours&) = delete;
  ElementColours& operator=(const ElementColours&) = delete;
  ~ElementColours();

  /// By the number of the element.
  const std::vector<QRgb>& colours() const { return m_colours; }

  /// The colour of a group.
  QColor ofGroup(const Identifier& groupId) { return m_groupColours.of(groupId); }

  /// The number of an element; none if it is not in the document.
  std::optional<std::uint32_t> numberOf(const GUIdentifier& element) const;

  /// The element with a number, which is less than that of colours.
  const PointCollection& element(std::uint32_t number) const;

  /// Calls the function after each change of colours.
  void setListener(std::function<void()> listener) { m_listener = std::move(listener); }

private:
  void follow(const GroupsChange<GUIdentifier>& change);
  void renew(const std::vector<GUIdentifier>& elements);

  std::shared_ptr<PointDocument> m_document;
  std::unordered_map<GUIdentifier, std::uint32_t> m_numbers;
  GroupColours m_groupColours;
  std::vector<QRgb> m_colours;
  std::function<void()> m_listener;
  GroupsSubscription<GUIdentifier> m_subscription;
};

}
