// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Runner.h"

#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"
#include "PointCollections/Text/Interruption.h"

#include <gmock/gmock.h>

#include <deque>
#include <sstream>

namespace Tarvik::PointCollections {
namespace {

/// Types fixed lines.
class ScriptedReader : public LineReader {
public:
  explicit ScriptedReader(std::deque<std::string> lines) : m_lines(std::move(lines)) {}

  std::string prompts; ///< all that were shown, joined

  std::optional<std::string> readLine(const std::string& prompt) override
  {
    prompts += prompt;
    if (m_lines.empty())
      return std::nullopt;
    auto line = m_lines.front();
    m_lines.pop_front();
    return line;
  }

private:
  std::deque<std::string> m_lines;
};

/// A command that cannot be undone, which is not a mistake of the user.
class FailingCommand : public CommandBase {
public:
  FailingCommand() : CommandBase("Fail") {}
  void execute() override {}
  void undo() override { throw std::runtime_error("out of luck"); }
  void redo() override {}
};

/// The user presses Ctrl-C while it is undone.
class SlowCommand : public CommandBase {
public:
  SlowCommand() : CommandBase("Be slow") {}
  void execute() override {}
  void undo() override { Interruptible::request(); }
  void redo() override {}
};

class Runner : public ::testing::Test {
protected:
  bool runText(const std::string& script, Transcript::Detail detail = Transcript::Detail::Full)
  {
    Transcript transcript(m_output, m_errors, detail);
    std::istringstream stream(script);
    return runScript(m_session, transcript, stream, "test.pcs");
  }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Session m_session = sessionOf({"a", "b"}, m_files);
  std::ostringstream m_output;
  std::ostringstream m_errors;
};

TEST_F(Runner, GoesOnIfMemoryDoesNotSufficeToLookForUnsavedWork)
{
  m_files->contents["p.csv"] = "collection,x,y,z\nc,1,2,3\n";
  m_session.lookForUnsavedWork = [] { throw std::bad_alloc(); };

  EXPECT_TRUE(runText("open p.csv\nshow\n", Transcript::Detail::ResultsOnly)) << m_errors.str();

  EXPECT_THAT(m_output.str(), ::testing::HasSubstr("1 element in 0 groups"));
  EXPECT_THAT(m_errors.str(), ::testing::StartsWith("warning: there is not enough memory"));
}

TEST_F(Runner, GoesOnIfTheUserStopsTheSearchForUnsavedWork)
{
  m_files->contents["p.csv"] = "collection,x,y,z\nc,1,2,3\n";
  m_session.lookForUnsavedWork = [] { throw Interrupted(); };

  EXPECT_TRUE(runText("open p.csv\nshow\n", Transcript::Detail::ResultsOnly));

  EXPECT_THAT(m_output.str(), ::testing::HasSubstr("1 element in 0 groups"));
  EXPECT_THAT(m_errors.str(), ::testing::HasSubstr("the search for unsaved work"));
}

TEST_F(Runner, EchoesCommandsAndSetsThemApart)
{
  EXPECT_TRUE(runText("create G a\n\n\nundo\n"));

  EXPECT_EQ(m_output.str(), "> create G a\n"
                            "Created G with 1 element.\n"
                            "\n"
                            "> undo\n"
                            "Undone: Create Group: G (1)\n");
  EXPECT_EQ(m_errors.str(), "");
}

TEST_F(Runner, PrintsCommentsAsParagraphs)
{
  EXPECT_TRUE(runText("#! a note\n## another\n# One,\n#two.\n\n  # Three.\ncreate G\n# Four.\n"));

  EXPECT_EQ(m_output.str(), "One,\n"
                            "two.\n"
                            "\n"
                            "Three.\n"
                            "\n"
                            "> create G\n"
                            "Created G with 0 elements.\n"
                            "\n"
                            "Four.\n");
}

TEST_F(Runner, PrintsNothingButResultsWhenQuiet)
{
  EXPECT_TRUE(runText("# One.\ncreate G\n\nundo\n", Transcript::Detail::ResultsOnly));

  EXPECT_EQ(m_output.str(), "Created G with 0 elements.\nUndone: Create Group: G (0)\n");
}

TEST_F(Runner, StopsAtTheFirstMistakeAndGivesTheLine)
{
  EXPECT_FALSE(runText("create G a\n\ncreate H x\ncreate I b\n"));

  EXPECT_EQ(m_errors.str(), "test.pcs:3: there is no element named x; show --all lists them\n");
  EXPECT_EQ(groupsOf(m_session), "G(a)");
}

TEST_F(Runner, TakesByteOrderMarksAndWindowsLineEnds)
{
  EXPECT_TRUE(runText("\xEF\xBB\xBF"
                      "create G a\r\ncreate H b"));

  EXPECT_EQ(groupsOf(m_session), "G(a) H(b)");
}

TEST_F(Runner, StopsWhenTheSessionIsOver)
{
  EXPECT_TRUE(runText("quit\nnonsense\n"));
  EXPECT_TRUE(runText("nonsense\n"));
}

TEST_F(Runner, EscapesAndShortensWhatItEchoes)
{
  EXPECT_FALSE(runText(std::string("create \0\x1B\xFF", 10)));
  EXPECT_EQ(m_output.str(), "> create \\x00\\x1B\\xFF\n");

  EXPECT_TRUE(runText("create " + std::string(5000, 'x') + "\n"));
  EXPECT_LT(m_output.str().size(), 1500U);
}

TEST_F(Runner, RefusesAnEndlessLine)
{
  EXPECT_FALSE(runText("create G\n" + std::string(17'000'000, 'x')));

  EXPECT_EQ(m_errors.str(), "test.pcs:2: a line of more than 16777216 bytes; expected a shorter "
                            "one\n");
}

TEST_F(Runner, ReportsACommandThatFails)
{
  m_session.editor.history().execute(std::make_shared<FailingCommand>());

  EXPECT_FALSE(runText("undo\n"));

  EXPECT_EQ(m_errors.str(), "test.pcs:1: this could not be done: out of luck\n");
  EXPECT_EQ(m_session.editor.history().position(), 1U);
}

TEST_F(Runner, StopsWhenTheOutputCannotBeWritten)
{
  m_output.setstate(std::ios::badbit);

  EXPECT_TRUE(runText("create G\ncreate H\n"));

  EXPECT_EQ(groupsOf(m_session), "");
}

TEST_F(Runner, NumbersTheCommandsGivenAsArguments)
{
  Transcript transcript(m_output, m_errors, Transcript::Detail::Full);

  EXPECT_FALSE(runCommands(m_session, transcript, {"create G", "crate H", "create I"}));

  EXPECT_EQ(m_errors.str(), "--command:2: crate is not a command; did you mean create?\n");
  EXPECT_EQ(groupsOf(m_session), "G()");
}

TEST_F(Runner, GoesOnAfterAMistakeOnATerminal)
{
  Transcript transcript(m_output, m_errors, Transcript::Detail::ResultsOnly);
  ScriptedReader reader({"create G a", "crate H", "", "# nothing", "create H b"});

  runInteractively(m_session, transcript, reader);

  EXPECT_EQ(groupsOf(m_session), "G(a) H(b)");
  EXPECT_EQ(m_errors.str(), "error: crate is not a command; did you mean create?\n"
                            "test.csv: the changes are not saved; save keeps them\n");
  EXPECT_EQ(m_output.str(), "Created G with 1 element.\n"
                            "Created H with 1 element.\n"
                            "(end of input)\n");
}

TEST_F(Runner, ShowsThatThereAreUnsavedChanges)
{
  Transcript transcript(m_output, m_errors, Transcript::Detail::ResultsOnly);
  ScriptedReader reader({"create G a", "undo"});

  runInteractively(m_session, transcript, reader);

  EXPECT_EQ(reader.prompts, "> *> > ");
}

TEST_F(Runner, AsksForUnsavedChangesAtTheEndOfTheInput)
{
  Transcript transcript(m_output, m_errors, Transcript::Detail::ResultsOnly);
  ScriptedReader reader({"create G a"});

  runInteractively(m_session, transcript, reader);

  EXPECT_EQ(reader.prompts, "> *> test.csv has unsaved changes. Type save FILE, discard or "
                            "cancel: ");
  EXPECT_EQ(m_errors.str(), "test.csv: the changes are not saved; save keeps them\n");
  EXPECT_FALSE(m_session.confirmDiscarding);
}

TEST_F(Runner, KeepsChangesWhenTheUserMistypesTheNameOfAFile)
{
  Transcript transcript(m_output, m_errors, Transcript::Detail::ResultsOnly);
  ScriptedReader reader({"create G a", "quit", "save p.csv", "quit", "save p.tkpc"});

  runInteractively(m_session, transcript, reader);

  EXPECT_EQ(m_errors.str(),
            "error: p.csv is not the name of a project file; expected one that ends in .tkpc\n");
  EXPECT_TRUE(m_files->contents.contains("p.tkpc"));
  EXPECT_TRUE(m_session.isOver);
}

TEST_F(Runner, EndsWhenTheUserQuits)
{
  Transcript transcript(m_output, m_errors, Transcript::Detail::ResultsOnly);
  ScriptedReader reader({"quit", "create G"});

  runInteractively(m_session, transcript, reader);

  EXPECT_EQ(groupsOf(m_session), "");
  EXPECT_EQ(m_output.str(), "");
}

TEST_F(Runner, LeavesEverythingAsItWasWhenStepsAreStopped)
{
  run(m_session, {"create A a", "create B b"});
  m_session.editor.history().execute(std::make_shared<SlowCommand>());
  run(m_session, {"create C"});
  const auto before = stateOf(m_session);
  const Interruptible whileRunning;

  EXPECT_THROW(run(m_session, {"undo 4"}), Interrupted);

  EXPECT_TRUE(stateOf(m_session) == before);
}

/// The user stops the program while it reads a file.
class ImpatientFiles : public MemoryFiles {
public:
  std::vector<std::byte> readBytes(const std::filesystem::path& file) override
  {
    Interruptible::request();
    return MemoryFiles::readBytes(file);
  }
};

TEST_F(Runner, KeepsTheDocumentWhenOpeningAnotherOneIsStopped)
{
  auto session = sessionOf({"a", "b"}, std::make_shared<ImpatientFiles>());
  run(session, {"create A a", "save p.tkpc"});
  const auto before = stateOf(session);
  const Interruptible whileRunning;

  EXPECT_THROW(run(session, {"open p.tkpc"}), Interrupted);

  EXPECT_TRUE(stateOf(session) == before);
}

TEST_F(Runner, SaysThatALineWasStopped)
{
  Transcript transcript(m_output, m_errors, Transcript::Detail::ResultsOnly);
  ScriptedReader reader({"undo 2", "create C"});
  run(m_session, {"create A"});
  m_session.editor.history().execute(std::make_shared<SlowCommand>());

  runInteractively(m_session, transcript, reader);

  EXPECT_THAT(m_errors.str(), ::testing::StartsWith("stopped: nothing has changed\n"));
  EXPECT_THAT(m_output.str(), ::testing::HasSubstr("Created C with 0 elements."));
  EXPECT_EQ(m_session.editor.history().position(), 3U);
}

}
}
