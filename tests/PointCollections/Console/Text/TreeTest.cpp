// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Tree.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

TEST(Tree, IsOneLineWithoutBranches)
{
  EXPECT_EQ(drawTree({"root"}), "root\n");
}

TEST(Tree, ContinuesTheLinesOfBranchesThatAreNotTheLast)
{
  const Tree tree = {"root", {{"a", {{"a1"}, {"a2", {{"deep"}}}}}, {"b"}, {"c", {{"c1"}}}}};

  EXPECT_EQ(drawTree(tree), "root\n"
                            "├─ a\n"
                            "│  ├─ a1\n"
                            "│  └─ a2\n"
                            "│     └─ deep\n"
                            "├─ b\n"
                            "└─ c\n"
                            "   └─ c1\n");
}

}
}
