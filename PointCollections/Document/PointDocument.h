// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "PointCollections/Document/CollectionsById.h"
#include "PointCollections/Document/PointCollection.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// Point collections in an order, and the groups that the user makes of them.
///
/// Always owned by a std::shared_ptr, because commands share it. It keeps no command itself, so
/// there is no cycle. Groups may contain identifiers that are not in the document; their names are
/// empty.
class PointDocument : public TKGroupProvider<GUIdentifier>,
                      public std::enable_shared_from_this<PointDocument> {
  struct Private {};

public:
  /// An element that has the id or the name of an earlier one.
  struct Repeated {
    std::size_t index = 0; ///< in the list of elements
    PointCollection collection;
  };

  /// A document without groups.
  /// @param collections  in the document's order; of equal ids, or equal names, only the first is
  ///                     kept
  /// @param repeated     receives the elements that are not kept; may be null
  static std::shared_ptr<PointDocument> create(std::vector<PointCollection> collections = {},
                                               std::vector<Repeated>* repeated = nullptr);

  /// For create() only.
  PointDocument(Private, std::vector<PointCollection> collections, std::vector<Repeated>* repeated);

  PointDocument(const PointDocument&) = delete;
  PointDocument& operator=(const PointDocument&) = delete;
  ~PointDocument() override;

  /// The ids of all elements in the document's order.
  const std::vector<GUIdentifier>& order() const;

  /// Rearranges the elements.
  /// @param order  the same ids as order(), rearranged
  /// @throws std::invalid_argument if it is anything else; nothing changes then
  void setOrder(const std::vector<GUIdentifier>& order);

  /// The element with that id, or null; valid as long as the document.
  const PointCollection* find(const GUIdentifier& id) const;

  /// The element with exactly that name, or null; valid as long as the document.
  const PointCollection* findByName(std::string_view name) const;

  /// All elements, in no particular order.
  const std::vector<PointCollection>& collections() const noexcept { return m_collections; }

  /// Makes a command that changes the document's order, of grouped and ungrouped elements alike.
  /// Elements that are given twice count once; unknown ones are ignored. If the target is one of
  /// the elements, they gather around its place.
  /// @return null if the order would not change, or the target is unknown
  std::shared_ptr<CommandBase> createMoveCommand(const GUIdentifier& target,
                                                 const std::vector<GUIdentifier>& elements,
                                                 bool insertBefore) override;

  /// The element's name; empty if it is unknown.
  std::string getElementName(const GUIdentifier& element) override;

  /// The groups that the user left expanded in a tree, by their ids. A project keeps them, but they
  /// are no change that could be undone. There may be ids of groups that are gone.
  const std::unordered_set<Identifier>& expandedGroups() const noexcept { return m_expandedGroups; }
  void setExpandedGroups(std::unordered_set<Identifier> ids) { m_expandedGroups = std::move(ids); }

private:
  std::vector<PointCollection> m_collections; ///< never changed: the maps point into it
  CollectionsById m_byId = CollectionsById(m_collections);
  std::unordered_map<std::string_view, const PointCollection*> m_byName;
  std::unordered_set<Identifier> m_expandedGroups;
};

}
