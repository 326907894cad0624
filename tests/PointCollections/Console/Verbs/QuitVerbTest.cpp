// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Questions.h"
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;

class Quit : public ::testing::Test {
protected:
  /// Whether the session is over after a change and `quit`.
  bool isOverAfter(std::deque<std::string> answers)
  {
    Questions questions(m_session, std::move(answers));
    run(m_session, {"create G", "quit"});
    m_asked = questions.asked;
    return m_session.isOver;
  }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Session m_session = sessionOf({"a"}, m_files);
  std::vector<std::string> m_asked;
};

TEST_F(Quit, EndsTheSession)
{
  EXPECT_EQ(run(m_session, {"quit"}), "");
  EXPECT_TRUE(m_session.isOver);
}

TEST_F(Quit, EndsAScriptWithChanges)
{
  run(m_session, {"create G", "quit"});

  EXPECT_TRUE(m_session.isOver);
}

TEST_F(Quit, AsksNothingWithoutChanges)
{
  Questions questions(m_session, {});
  run(m_session, {"quit"});

  EXPECT_TRUE(m_session.isOver);
  EXPECT_THAT(questions.asked, ElementsAre());
}

TEST_F(Quit, AsksWhatToDoWithUnsavedChanges)
{
  EXPECT_TRUE(isOverAfter({"discard"}));

  EXPECT_THAT(m_asked, ElementsAre("test.csv has unsaved changes. Type save FILE, discard or "
                                   "cancel: "));
  EXPECT_TRUE(m_files->contents.empty());
}

TEST_F(Quit, StaysWhenTheUserSaysSo)
{
  EXPECT_FALSE(isOverAfter({"cancel"}));
}

TEST_F(Quit, StaysWhenThereIsNoAnswer)
{
  EXPECT_FALSE(isOverAfter({}));
}

TEST_F(Quit, SavesWhenTheUserSaysSo)
{
  EXPECT_TRUE(isOverAfter({"save p.tkpc"}));

  EXPECT_TRUE(m_files->contents.contains("p.tkpc"));
}

TEST_F(Quit, StaysWhenSavingFails)
{
  Questions questions(m_session, {"save", "save p.tkpc"});
  run(m_session, {"create G"});
  EXPECT_EQ(mistake(m_session, "quit"),
            "test.csv is not saved in a project file yet; usage: save FILE");
  EXPECT_FALSE(m_session.isOver);

  m_files->isFull = true;
  EXPECT_EQ(mistake(m_session, "quit"), "p.tkpc: the disk is full");
  EXPECT_FALSE(m_session.isOver);
}

}
}
