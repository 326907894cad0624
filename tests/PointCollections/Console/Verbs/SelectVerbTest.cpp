// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Select : public ::testing::Test {
protected:
  Select() { run(m_session, {"create G b1 b2 b3", "create H c"}); }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Session m_session = sessionOf({"a", "b1", "b2", "b3", "c", "d", "e f"}, m_files);
};

TEST_F(Select, TellsHowManyAndTheFirst)
{
  EXPECT_EQ(run(m_session, {"select b*"}), "3 elements (3 from G): b1, b2, b3");
  EXPECT_EQ(run(m_session, {"select :*"}), "3 elements: a, d, \"e f\"");
  EXPECT_EQ(run(m_session, {"select *"}),
            "7 elements (3 from G, 1 from H): a, b1, b2, b3, c … and 2 more");
}

TEST_F(Select, ChangesNothing)
{
  const auto before = stateOf(m_session);

  run(m_session, {"select G:1-2 c"});

  EXPECT_TRUE(stateOf(m_session) == before);
}

TEST_F(Select, WorksLikeEveryCommandThatTakesElements)
{
  m_files->contents["names.txt"] = "d\ne f\n";

  EXPECT_EQ(run(m_session, {"create I @names.txt G:1"}), "Created I with 3 elements (1 from G).");
  EXPECT_EQ(run(m_session, {"add H I:2-"}), "Added 2 elements to H (2 from I).");
  EXPECT_EQ(run(m_session, {"move :* --after G:1"}), "Moved 1 element after b2 in G.");
  EXPECT_EQ(groupsOf(m_session), "G(b2 a b3) H(c e f b1) I(d)");
  EXPECT_EQ(run(m_session, {"remove *:*"}), "Removed 7 elements (3 from G, 3 from H, 1 from I).");
}

TEST_F(Select, IsForElementsOnly)
{
  EXPECT_EQ(mistake(m_session, "delete \"G\"*"),
            "\"G\"* has a quote inside; put the whole word in quotes, and a \\ before a quote that "
            "belongs to it");
  EXPECT_EQ(mistake(m_session, "add G a --before b*"), "b* selects 3 elements; name one");
  EXPECT_EQ(run(m_session, {"create *"}), "Created \"*\" with 0 elements.");
}

TEST_F(Select, TakesLinesAsLongAsScriptsMakeThem)
{
  std::vector<PointCollection> collections;
  std::string line = "create Long";
  for (int i = 0; i < 100'000; ++i) {
    collections.push_back(
        {.id = GUIdentifier(), .name = "element number " + std::to_string(i), .points = {}});
    line += " \"" + collections.back().name + '"';
  }
  Session session = {.editor = Editor({PointDocument::create(std::move(collections)), "long"})};

  EXPECT_EQ(run(session, {line}), "Created Long with 100000 elements.");
}

}
}
