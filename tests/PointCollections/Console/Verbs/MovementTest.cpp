// SPDX-License-Identifier: MIT
// What the answers say about elements that are in several groups, or twice in one.
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

/// G has a and c, H has a, b and c, I has b and a; d is ungrouped.
class ASharedElement : public ::testing::Test {
protected:
  ASharedElement()
  {
    auto& document = *m_session.editor.document();
    document.setGroups(
        {group("G", {"a", "c"}), group("H 1", {"a", "b", "c"}), group("I", {"b", "a"})});
  }

  TKGroup<GUIdentifier> group(const std::string& name, const std::vector<std::string>& names) const
  {
    TKGroup<GUIdentifier> result(name);
    std::vector<GUIdentifier> members;
    members.reserve(names.size());
    for (const auto& each : names)
      members.push_back(m_session.editor.document()->findByName(each)->id);
    result.addGroupMembersAtIndex(members, -1);
    return result;
  }

  Session m_session = sessionOf({"a", "b", "c", "d", "e"});
};

TEST_F(ASharedElement, StaysInOtherGroupsWhenItIsRemoved)
{
  EXPECT_EQ(run(m_session, {"remove c"}), "Removed 1 element from G; c is still in \"H 1\".");
  EXPECT_EQ(run(m_session, {"remove \"H 1\":c"}), "Removed 1 element from \"H 1\".");
  EXPECT_EQ(run(m_session, {"remove I:a"}), "Removed 1 element from G; a is still in 2 groups.");
  EXPECT_EQ(run(m_session, {"remove a b"}),
            "Removed 2 elements from \"H 1\"; 2 elements are still in groups.");
  EXPECT_EQ(groupsOf(m_session), "G() H 1() I(b a)");
}

TEST_F(ASharedElement, StaysInOtherGroupsWhenItMovesAmongTheUngrouped)
{
  EXPECT_EQ(run(m_session, {"move c --before d"}),
            "Moved 1 element before d, which is ungrouped (1 from G); c is still in \"H 1\".");
  EXPECT_EQ(groupsOf(m_session), "G(a) H 1(a b c) I(b a)");
}

TEST_F(ASharedElement, StaysInOtherGroupsWhenItMovesIntoOne)
{
  EXPECT_EQ(run(m_session, {"create J c e"}),
            "Created J with 2 elements (1 from G); c is still in \"H 1\".");
  EXPECT_EQ(
      run(m_session, {"add J a b"}),
      "Added 2 elements to J (1 from G, 1 from \"H 1\"); 2 elements are still in other places.");
  EXPECT_EQ(run(m_session, {"move a --before e"}),
            "Moved 1 element before e in J (1 from \"H 1\"); a is still in I.");
  EXPECT_EQ(run(m_session, {"add J d e"}), "Added 2 elements to J (1 moved within it).");
}

TEST_F(ASharedElement, MayBeInAGroupMoreThanOnce)
{
  m_session.editor.document()->setGroups({group("G", {"a", "b", "a", "a"})});

  EXPECT_EQ(run(m_session, {"add G a --at 2"}),
            "Added 1 element to G (1 moved within it); a is in G more than once.");
  EXPECT_EQ(run(m_session, {"remove G:3"}), "Removed 1 element from G; a is still in G.");
  EXPECT_EQ(run(m_session, {"remove a"}), "Removed 1 element from G.");
}

}
}
