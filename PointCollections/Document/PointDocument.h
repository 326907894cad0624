// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "PointCollections/Document/PointCollection.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// Point collections in an order of their own, and the groups that the user makes of them.
///
/// Always owned by a std::shared_ptr, since commands share it; it holds no command itself. The
/// groups may hold identifiers of no collection in the document; those have an empty name.
class PointDocument : public TKGroupProviderInterface<GUIdentifier>,
                      public std::enable_shared_from_this<PointDocument> {
  struct Private {};

public:
  /// A document without groups.
  /// @param collections  their order becomes the document's; of equal ids, and of equal names,
  ///                     only the first is kept
  static std::shared_ptr<PointDocument> create(std::vector<PointCollection> collections = {});

  /// For create() only.
  PointDocument(Private, std::vector<PointCollection> collections);

  PointDocument(const PointDocument&) = delete;
  PointDocument& operator=(const PointDocument&) = delete;
  ~PointDocument() override;

  /// The ids of all collections in the document's order.
  const std::vector<GUIdentifier>& order() const;

  /// Rearranges the collections.
  /// @param order  the same ids as order(), rearranged
  /// @throws std::invalid_argument when it is anything else; nothing changes then
  void setOrder(const std::vector<GUIdentifier>& order);

  /// The collection with that id, or null; valid as long as the document.
  const PointCollection* find(const GUIdentifier& id) const;

  /// The collection with exactly that name, or null; valid as long as the document.
  const PointCollection* findByName(const std::string& name) const;

  /// The order that results from placing elements beside another one, as createMoveCommand()
  /// does it; the present order when nothing moves.
  std::vector<GUIdentifier> orderAfterMove(const GUIdentifier& target,
                                           const std::vector<GUIdentifier>& elements,
                                           bool insertBefore) const;

  /// The first group that holds the element, or null; valid until the list of groups changes.
  const TKGroup<GUIdentifier>* holderOf(const GUIdentifier& element) const;

  std::vector<TKGroup<GUIdentifier>>& getGroups() override;

  /// The collections that lie in no group, in the document's order.
  std::vector<GUIdentifier> getUngroupedElements() override;

  void setGroups(const std::vector<TKGroup<GUIdentifier>>& groups) override;

  /// Makes a command on the document's order, of grouped and ungrouped elements alike. Elements
  /// that are given twice count once, unknown ones not at all. When the target is one of the
  /// elements, they gather around the place where it stands.
  /// @return null when the order would stay as it is, or the target is unknown
  std::shared_ptr<CommandBase> createMoveCommand(const GUIdentifier& target,
                                                 const std::vector<GUIdentifier>& elements,
                                                 bool insertBefore) override;

  /// The group's members in their order; none when the group is unknown.
  std::vector<std::pair<GUIdentifier, std::string>>
  getGroupMemberNames(const Identifier& groupId) override;

  /// Takes any name, taken and empty ones included. An unknown group changes nothing.
  void renameGroup(const Identifier& groupId, const std::string& name) override;

  /// The collection's name; empty when it is unknown.
  std::string getElementName(const GUIdentifier& element) override;

private:
  std::vector<GUIdentifier> m_order;
  std::unordered_map<GUIdentifier, PointCollection> m_collections;
  std::unordered_map<std::string, GUIdentifier> m_idsByName;
  std::vector<TKGroup<GUIdentifier>> m_groups;
};

}
