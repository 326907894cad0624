// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "HighLevelServices/Model/Model.h"
#include "HighLevelServices/Model/ModelHost.h"
#include "HighLevelServices/Model/Operation.h"
#include "Support/Groups.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// Does the same with the commands and with the model.
namespace Tarvik::Modelling {

/// The first moment at which the library and the model did not agree.
struct Difference {
  std::size_t operations; ///< how many operations it takes
  std::string moment;     ///< after what
  std::string expected;
  std::string found;
};

/// A host and the history of the commands that work on it.
template <class T>
class Library {
public:
  explicit Library(std::shared_ptr<ModelHost<T>> host) : m_host(std::move(host)) {}

  /// @param model  knows which groups and positions the operation refers to
  void run(const Operation& operation, const Model& model)
  {
    std::visit([&](const auto& each) { perform(each, model); }, operation);
  }

  /// The state of the host, in the terms of the model.
  State state()
  {
    State result;
    for (const auto& group : groups())
      result.groups.push_back(
          {keyOf(group.getId()), group.getName(), namesOf(group.getGroupMembers())});
    result.order = namesOf(m_host->order());
    return result;
  }

  const std::vector<TKGroup<T>>& groups() const { return m_host->getGroups(); }

  const std::string& complaint() const { return m_host->complaint(); }

private:
  void perform(const HaveGroup& have, const Model& model)
  {
    if (model.size() > 0)
      return;
    auto& list = m_host->getGroups();
    const auto shared = have.sameIdAs ? model.keyOf(*have.sameIdAs) : unknownGroup;
    TKGroup<T> group; // only copies of a group have its id
    if (shared >= 0)
      group = *std::find_if(list.begin(), list.end(),
                            [&](const auto& each) { return each.getId() == idOf(shared); });
    group.setName(have.name, true);
    group.clear();
    group.addGroupMembersAtIndex(idsOf(have.elements), -1);
    list.push_back(group);
  }

  void perform(const CreateGroup& create, const Model&)
  {
    execute<CreateTKGroupCmd<T>>(idsOf(create.elements), create.name);
  }

  void perform(const AddElements& add, const Model& model)
  {
    const auto command = std::make_shared<AddToTKGroupCmd<T>>(m_host, idsOf(add.elements),
                                                              idOf(model.keyOf(add.group)));
    if (add.index)
      command->setInsertIndex(*add.index);
    m_history.execute(command);
  }

  void perform(const RemoveElements& remove, const Model&)
  {
    execute<RemoveFromTKGroupCmd<T>>(idsOf(remove.elements));
  }

  void perform(const RemoveGroups& remove, const Model& model)
  {
    execute<RemoveTKGroupsCmd<T>>(idsOfGroups(remove.groups, model));
  }

  void perform(const MoveGroups& move, const Model& model)
  {
    execute<MoveTKGroupsCmd<T>>(idsOfGroups(move.groups, model), idOf(model.keyOf(move.group)),
                                move.before);
  }

  void perform(const RenameGroup& rename, const Model& model)
  {
    execute<RenameTKGroupCmd<T>>(idOf(model.keyOf(rename.group)), rename.name);
  }

  void perform(const MoveElements& move, const Model&)
  {
    m_host->makeMoveCommands(move.hostHasCommand);
    execute<MoveTKGroupElementsCmd<T>>(idsOf(move.elements), m_host->element(move.target),
                                       move.before);
  }

  void perform(const SortGroups& sort, const Model&)
  {
    m_host->listMembers(sort);
    execute<SortTKGroupsAlphabeticallyCmd<T>>();
  }

  void perform(const Undo&, const Model&) { m_history.undo(); }

  void perform(const Redo&, const Model&) { m_history.redo(); }

  void perform(const JumpTo& jump, const Model& model)
  {
    m_history.jumpTo(model.destination(jump));
  }

  template <class Command, class... Arguments>
  void execute(const Arguments&... arguments)
  {
    m_history.execute(std::make_shared<Command>(m_host, arguments...));
  }

  std::vector<T> idsOf(const Elements& elements) const
  {
    std::vector<T> ids;
    for (const int element : elements)
      ids.push_back(m_host->element(element));
    return ids;
  }

  std::vector<Identifier> idsOfGroups(const std::vector<int>& groups, const Model& model) const
  {
    std::vector<Identifier> ids;
    for (const int group : groups)
      ids.push_back(idOf(model.keyOf(group)));
    return ids;
  }

  Names namesOf(const std::vector<T>& elements) const
  {
    Names names;
    for (const T& element : elements)
      names.push_back(m_host->getElementName(element));
    return names;
  }

  const Identifier& idOf(GroupKey key) const
  {
    if (key == invalidGroup)
      return Identifier::getInvalidId();
    return key == unknownGroup ? m_unknownId : m_ids.at(static_cast<std::size_t>(key));
  }

  /// The next free key for an id that is seen for the first time.
  GroupKey keyOf(const Identifier& id)
  {
    auto found = std::find(m_ids.begin(), m_ids.end(), id);
    if (found == m_ids.end())
      found = m_ids.insert(found, id);
    return static_cast<GroupKey>(found - m_ids.begin());
  }

  std::shared_ptr<ModelHost<T>> m_host;
  CommandHistory m_history;
  std::vector<Identifier> m_ids; ///< by key
  Identifier m_unknownId;
};

/// Runs each operation on the library and on the model, and compares the two.
template <class T>
class Comparison {
public:
  explicit Comparison(const std::shared_ptr<ModelHost<T>>& host)
      : m_library(host), m_model(host->crowd())
  {}

  /// Stops at the first difference.
  void run(const Operation& operation, const std::string& moment)
  {
    if (m_difference)
      return;
    try {
      m_library.run(operation, m_model);
    } catch (const std::exception& exception) {
      m_difference = Difference{0, moment, "no exception\n", exception.what() + std::string("\n")};
      return;
    }
    m_model.run(operation);
    const auto found = m_library.state();
    if (std::holds_alternative<SortGroups>(operation))
      m_model.adoptOrderOfTies(found);
    if (found != m_model.state())
      m_difference = Difference{0, moment, text(m_model.state()), text(found)};
    else if (!m_library.complaint().empty())
      m_difference = Difference{0, moment, "no complaint\n", m_library.complaint() + '\n'};
  }

  void undoAll()
  {
    while (m_model.position() > 0 && !m_difference)
      run(Undo{}, "undoing everything");
  }

  void redoAll()
  {
    while (m_model.position() < m_model.size() && !m_difference)
      run(Redo{}, "redoing everything");
  }

  /// Checks that the groups are the same in every respect.
  void expectIdentical(const std::vector<TKGroup<T>>& groups, const std::string& moment)
  {
    if (!m_difference && !identical(groups, m_library.groups()))
      m_difference = Difference{0, moment, "the very same groups\n", text(m_library.state())};
  }

  std::vector<TKGroup<T>> copyOfGroups() const { return m_library.groups(); }

  /// Whether no command has been executed yet.
  bool isAtStart() const { return m_model.size() == 0; }

  const std::optional<Difference>& difference() const { return m_difference; }

private:
  Library<T> m_library;
  Model m_model;
  std::optional<Difference> m_difference;
};

/// Runs the operations on a host without groups, then undoes and redoes everything.
/// @return none when library and model agree all the time
template <class T>
std::optional<Difference> run(const Operations& operations,
                              const std::shared_ptr<ModelHost<T>>& host)
{
  Comparison<T> comparison(host);
  const auto differenceAfter = [&](std::size_t count) {
    auto difference = comparison.difference();
    difference->operations = count;
    return difference;
  };

  std::vector<TKGroup<T>> first;
  for (std::size_t i = 0; i < operations.size(); ++i) {
    comparison.run(operations[i], text(operations[i]));
    if (comparison.difference())
      return differenceAfter(i + 1);
    if (comparison.isAtStart())
      first = comparison.copyOfGroups();
  }

  comparison.redoAll();
  const auto last = comparison.copyOfGroups();
  comparison.undoAll();
  comparison.expectIdentical(first, "undoing everything");
  comparison.redoAll();
  comparison.expectIdentical(last, "redoing everything");
  if (comparison.difference())
    return differenceAfter(operations.size());
  return std::nullopt;
}

}
