// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Tree.h"

namespace Tarvik::PointCollections {
namespace {

void drawBranches(const Tree& tree, const std::string& indent, std::string& out)
{
  for (const Tree& branch : tree.branches) {
    const bool isLast = &branch == &tree.branches.back();
    out.append(indent).append(isLast ? "└─ " : "├─ ").append(branch.label) += '\n';
    if (!branch.branches.empty())
      drawBranches(branch, indent + (isLast ? "   " : "│  "), out);
  }
}

}

std::string drawTree(const Tree& tree)
{
  std::string result = tree.label + '\n';
  drawBranches(tree, "", result);
  return result;
}

}
