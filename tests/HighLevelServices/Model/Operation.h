// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What a user or a host does, as plain values that mean something in any order and in any
/// subsequence: elements are numbers (see Elements.h), groups are positions in the list as it is
/// then, modulo its length.
namespace Tarvik::Modelling {

using Elements = std::vector<int>;

/// Stand for groups that the list does not have.
inline constexpr int unknownGroup = -1;
inline constexpr int invalidGroup = -2;

/// The host has a group from the start. Skipped once a command has been executed.
struct HaveGroup {
  std::string name;
  Elements elements; ///< duplicates included
  std::optional<int> sameIdAs;
};

struct CreateGroup {
  Elements elements;
  std::string name;
};

struct AddElements {
  Elements elements;
  int group;
  std::optional<int> index;
};

struct RemoveElements {
  Elements elements;
};

struct RemoveGroups {
  std::vector<int> groups;
};

struct RenameGroup {
  int group;
  std::string name;
};

struct MoveElements {
  Elements elements;
  int target;
  bool before;
  bool hostHasCommand; ///< whether createMoveCommand() makes one
};

/// Which members the host lists for a group, besides those that it knows.
enum class Listing { AsTheyAre, Without, With, Twice };

struct SortGroups {
  Listing listing;
  int element; ///< the one that is left out or added
};

struct Undo {};

struct Redo {};

/// Goes to a position of the history, modulo the number of positions.
struct JumpTo {
  int position;
};

using Operation = std::variant<HaveGroup,
                               CreateGroup,
                               AddElements,
                               RemoveElements,
                               RemoveGroups,
                               RenameGroup,
                               MoveElements,
                               SortGroups,
                               Undo,
                               Redo,
                               JumpTo>;
using Operations = std::vector<Operation>;

/// One line in plain words.
std::string text(const Operation& operation);

/// A numbered line for each.
std::string text(const Operations& operations);

}
