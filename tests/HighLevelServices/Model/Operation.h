// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What a user or a host does, as plain values that make sense in any order and any subsequence:
/// elements are numbers (see Elements.h), groups are positions in the current list, modulo its
/// length.
namespace Tarvik::Modelling {

using Elements = std::vector<int>;

/// Groups that are not in the list.
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

struct MoveGroups {
  std::vector<int> groups;
  int group; ///< the target
  bool before;
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

/// How the host changes the list of a group's known members.
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
                               MoveGroups,
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
