// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// A line of a tree and the lines below it.
struct Tree {
  std::string label; ///< one line, safe to print
  std::vector<Tree> branches = {};
};

/// Draws the tree with ├─, └─ and │, one label per line. Every line has a line end.
std::string drawTree(const Tree& tree);

}
