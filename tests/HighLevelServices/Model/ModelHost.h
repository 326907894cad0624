// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "HighLevelServices/Model/Elements.h"
#include "HighLevelServices/Model/Operation.h"
#include "Support/Groups.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::Modelling {

template <class T>
class HostMoveCmd;

/// A host with named elements, some groups and an order of its elements. Tests decide how it lists
/// members and whether it makes move commands. When groups share an id, it uses the first.
template <class T>
class ModelHost : public TKGroupProviderInterface<T> {
public:
  using Element = T;

  /// @param crowd  how many elements there are besides those with names of their own
  explicit ModelHost(std::size_t crowd = 0) : m_elements(elementNames.size() + crowd)
  {
    m_elements[invalidElement] = T::getInvalidId();
    m_order.assign(m_elements.begin(), m_elements.begin() + knownElements);
    m_order.insert(m_order.end(), m_elements.begin() + numberOfElements, m_elements.end());
  }

  std::size_t crowd() const { return m_elements.size() - elementNames.size(); }

  std::vector<TKGroup<T>>& getGroups() override { return m_groups; }

  std::vector<T> getUngroupedElements() override
  {
    std::vector<T> result;
    std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(result),
                 [this](const T& element) { return isUngrouped(element); });
    return result;
  }

  void setGroups(const std::vector<TKGroup<T>>& groups) override { m_groups = groups; }

  std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) override
  {
    if (!m_makesMoveCommands)
      return nullptr;
    return std::make_shared<HostMoveCmd<T>>(*this, target, elements, insertBefore);
  }

  std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier& groupId) override
  {
    std::vector<std::pair<T, std::string>> names;
    const auto& odd = element(m_listing.element);
    if (const auto* const group = find(groupId)) {
      for (const T& member : group->getGroupMembers()) {
        const bool isLeftOut = m_listing.listing == Listing::Without && member == odd;
        if (!isKnown(member) || isLeftOut)
          continue;
        names.emplace_back(member, getElementName(member));
        if (m_listing.listing == Listing::Twice)
          names.emplace_back(member, secondName(getElementName(member)));
      }
    }
    if (m_listing.listing == Listing::With)
      names.emplace_back(odd, getElementName(odd));
    return names;
  }

  void renameGroup(const Identifier& groupId, const std::string& name) override
  {
    if (auto* const group = find(groupId))
      group->setName(name, true);
  }

  std::string getElementName(const T& element) override
  {
    const auto found = std::find(m_elements.begin(), m_elements.end(), element);
    return found == m_elements.end() ? "?"
                                     : elementName(static_cast<int>(found - m_elements.begin()));
  }

  const T& element(int number) const { return m_elements.at(static_cast<std::size_t>(number)); }

  const std::vector<T>& order() const { return m_order; }
  void setOrder(const std::vector<T>& order) { m_order = order; }

  bool isKnown(const T& element) const
  {
    return std::find(m_order.begin(), m_order.end(), element) != m_order.end();
  }

  bool isUngrouped(const T& element) const
  {
    return std::none_of(m_groups.begin(), m_groups.end(),
                        [&](const auto& group) { return group.isInGroup(element); });
  }

  /// From now on getGroupMemberNames() lists members like this.
  void listMembers(const SortGroups& listing) { m_listing = listing; }

  /// Whether createMoveCommand() makes a command from now on.
  void makeMoveCommands(bool make) { m_makesMoveCommands = make; }

  /// Notes something that a command must not have done.
  void complain(const std::string& complaint) { m_complaint = complaint; }
  const std::string& complaint() const { return m_complaint; }

private:
  TKGroup<T>* find(const Identifier& id)
  {
    const auto found = std::find_if(m_groups.begin(), m_groups.end(),
                                    [&id](const auto& group) { return group.getId() == id; });
    return found == m_groups.end() ? nullptr : &*found;
  }

  std::vector<T> m_elements;
  std::vector<T> m_order;
  std::vector<TKGroup<T>> m_groups;
  SortGroups m_listing{Listing::AsTheyAre, 0};
  bool m_makesMoveCommands = true;
  std::string m_complaint;
};

/// The host's command: moves the ungrouped elements that the host knows next to the target, or to
/// the front or the end of the order when the target is not among the others.
///
/// Complains when it is undone or redone while the groups differ from those that it found.
template <class T>
class HostMoveCmd : public CommandBase {
public:
  HostMoveCmd(ModelHost<T>& host, const T& target, const std::vector<T>& elements, bool before)
      : CommandBase("host's move"),
        m_host(host),
        m_target(target),
        m_elements(elements),
        m_before(before)
  {}

  void execute() override
  {
    m_groups = m_host.getGroups();
    m_orderBefore = m_host.order();

    std::vector<T> placed;
    std::copy_if(m_elements.begin(), m_elements.end(), std::back_inserter(placed),
                 [this](const T& element) {
                   return m_host.isKnown(element) && m_host.isUngrouped(element);
                 });
    m_orderAfter = m_orderBefore;
    std::erase_if(m_orderAfter, [&placed](const T& element) {
      return std::find(placed.begin(), placed.end(), element) != placed.end();
    });
    auto place = std::find(m_orderAfter.begin(), m_orderAfter.end(), m_target);
    if (place == m_orderAfter.end())
      place = m_before ? m_orderAfter.begin() : m_orderAfter.end();
    else if (!m_before)
      ++place;
    m_orderAfter.insert(place, placed.begin(), placed.end());
    m_host.setOrder(m_orderAfter);
  }

  void undo() override
  {
    checkTurn("undone");
    m_host.setOrder(m_orderBefore);
  }

  void redo() override
  {
    checkTurn("redone");
    m_host.setOrder(m_orderAfter);
  }

private:
  void checkTurn(const std::string& what)
  {
    if (!identical(m_groups, m_host.getGroups()))
      m_host.complain("the host's command was " + what + " out of turn");
  }

  ModelHost<T>& m_host;
  T m_target;
  std::vector<T> m_elements;
  bool m_before;
  std::vector<TKGroup<T>> m_groups;
  std::vector<T> m_orderBefore;
  std::vector<T> m_orderAfter;
};

}
