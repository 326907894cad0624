// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// A line of a tree and the lines below it.
struct Tree {
  std::string label; ///< one line, fit to be printed
  std::vector<Tree> branches = {};
};

/// Draws the tree with ├─, └─ and │, one label per line, each line ended.
std::string drawn(const Tree& tree);

}
