// SPDX-License-Identifier: MIT
// What a line answers when memory runs out, whenever that happens.

#include "PointCollections/Console/Shell/AnswerInNeed.h"

#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/Language.h"
#include "PointCollections/Support/MemoryFiles.h"
#include "PointCollections/Text/UserError.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

constexpr auto done = "Done. There is not enough memory to say more.";

class LineInNeed : public ::testing::TestWithParam<const char*> {
protected:
  /// Leaves steps to undo and to redo, and a file to open.
  static void prepare(Session& session)
  {
    run(session,
        {"create G a b", "create H c", "save p.tkpc", "sort", "rename G I", "create K", "undo"});
  }

  static std::string stateOf(const Session& session)
  {
    return groupsOf(session) + " | " + ungroupedOf(session) + " | " + session.editor.title() +
           (session.editor.hasUnsavedChanges() ? " *" : "");
  }

  std::string savedState() const { return m_files->contents.contains("new.tkpc") ? "saved" : ""; }

  /// What a session is like after the line, and what it answers.
  struct Outcome {
    std::string state;
    std::string answer;
  };

  Outcome undisturbed()
  {
    m_files->contents.clear();
    auto session = sessionOf({"a", "b", "c", "d"}, m_files);
    prepare(session);
    auto answer = runLine(session, GetParam());
    return {stateOf(session) + savedState(), answer};
  }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
};

TEST_P(LineInNeed, FailsWithNothingChangedOrSaysThatItIsDone)
{
  const auto expected = undisturbed();
  bool hasFailed = true;
  std::size_t shortAnswers = 0;
  for (std::size_t failing = 0; hasFailed; ++failing) {
    m_files->contents.clear();
    auto session = sessionOf({"a", "b", "c", "d"}, m_files);
    prepare(session);
    const auto before = stateOf(session) + savedState();
    bool isDone = false;
    std::string answer;
    try {
      const AllocationWatch watch(failing);
      answer = runLine(session, GetParam());
      isDone = true;
    } catch (const UserError&) {
    } catch (const std::bad_alloc&) {
    }
    hasFailed = AllocationWatch::hasFailed();

    EXPECT_EQ(stateOf(session) + savedState(), isDone ? expected.state : before) << failing;
    if (isDone && !answer.starts_with(done)) {
      EXPECT_EQ(answer.substr(0, answer.find("\nThere was not")), expected.answer) << failing;
    }
    shortAnswers += answer.starts_with(done) ? 1U : 0U;
  }
  const bool preparesItsAnswer = std::string_view(GetParam()).find("do") == 2;
  EXPECT_EQ(shortAnswers > 0, !preparesItsAnswer);
}

INSTANTIATE_TEST_SUITE_P(OfEachVerb,
                         LineInNeed,
                         ::testing::Values("create N a d",
                                           "add I c --at 1",
                                           "remove a",
                                           "move d --before a",
                                           "move a --after d",
                                           "move-group H --before I",
                                           "rename I \"a name that is long\"",
                                           "delete H I",
                                           "save new.tkpc",
                                           "open p.tkpc --discard",
                                           "undo",
                                           "undo 2",
                                           "redo"));

TEST(AnswerInNeed, IsInTheLanguageThatTheLineWasStartedIn)
{
  auto session = sessionOf({"a"});
  const auto takenLater = [&] {
    const Language language({{"there is not enough memory for this", "kein Speicher frei"}});
    return AnswerInNeed(session.editor);
  };
  auto answer = takenLater();

  EXPECT_EQ(mistakeIn([&] { answer.take(); }), "kein Speicher frei");
}

TEST(AnswerInNeed, TellsThatOnlySomeStepsWereUndone)
{
  auto session = sessionOf({"a"});
  run(session, {"create G", "create H"});
  AnswerInNeed answer(session.editor);

  session.editor.history().undo();

  EXPECT_EQ(mistakeIn([&] { answer.take(); }),
            "there is not enough memory: only some of the steps were undone or redone; history "
            "shows which");
}

}
}
