// SPDX-License-Identifier: MIT
// What a group calls on its name and its id when it is assigned. Only a platform that records the
// calls can show it.

#include "Recording.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class GroupAssignment : public ::testing::Test {};
TYPED_TEST_SUITE(GroupAssignment, ElementIdentifiers, KindName);

TYPED_TEST(GroupAssignment, SetsTheNameBeforeTheId)
{
  const TKGroup<TypeParam> source(std::string("A"));
  TKGroup<TypeParam> target;
  const Recording recording;

  target = source;

  EXPECT_EQ(recording.calls(),
            (std::vector<std::string>{"verbatim name A", "Identifier = another"}));
}

TYPED_TEST(GroupAssignment, SetsNameAndIdEvenToItself)
{
  const auto [a] = distinct<TypeParam, 1>();
  auto self = group("A", {a});
  const auto& alias = self;
  const Recording recording;

  self = alias;

  EXPECT_EQ(recording.calls(),
            (std::vector<std::string>{"verbatim name A", "Identifier = itself"}));
  EXPECT_EQ(self.getGroupMembers(), std::vector<TypeParam>{a});
}

}
}
