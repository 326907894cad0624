// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Model/Operation.h"

#include <cstddef>
#include <string>
#include <vector>

/// What the commands should do, in the simplest form: lists of names, and a history that keeps
/// every state.
namespace Tarvik::Modelling {

using Names = std::vector<std::string>;

/// Represents a group's id: groups get 0, 1, 2, ... in the order of their creation.
using GroupKey = int;

struct Group {
  GroupKey key;
  std::string name;
  Names members;

  friend bool operator==(const Group&, const Group&) = default;
};

struct State {
  std::vector<Group> groups;
  Names order; ///< all elements that the host knows, in its order

  friend bool operator==(const State&, const State&) = default;
};

std::string text(const State& state);

class Model {
public:
  /// No groups, and the known elements in the order of their numbers.
  /// @param crowd  as for ModelHost
  explicit Model(std::size_t crowd = 0);

  void run(const Operation& operation);

  const State& state() const { return m_states[m_position]; }

  /// How many commands there are to undo and redo.
  std::size_t size() const { return m_states.size() - 1; }

  std::size_t position() const { return m_position; }

  /// The position that a jump leads to.
  std::size_t destination(const JumpTo& jump) const;

  /// The key of the group that an operation refers to; negative when there is none.
  GroupKey keyOf(int group) const;

  /// After a sort, groups whose names are equal in lower case may be in any order: adopts the order
  /// that was found, unless something else differs.
  void adoptOrderOfTies(const State& found);

private:
  void perform(const HaveGroup& have);
  void perform(const CreateGroup& create);
  void perform(const Undo& undo);
  void perform(const Redo& redo);
  void perform(const JumpTo& jump);
  template <class Command>
  void perform(const Command& command);
  void push(const State& state);

  std::vector<State> m_states;
  std::size_t m_position = 0;
  GroupKey m_nextKey = 0;
};

}
