// SPDX-License-Identifier: MIT
#include "PointCollections/Support/Files.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

constexpr auto tab = "\t";
constexpr auto up = "\x1B[A";
constexpr auto controlC = "\x03";
constexpr auto controlD = "\x04";
const std::string marksPastes = "\x1B[?2004h"; ///< the program asks the terminal to do so

/// What a terminal sends when the user pastes a text.
std::string pasted(const std::string& text)
{
  return "\x1B[200~" + text + "\x1B[201~";
}

/// A file of points with so many elements: "element 0" and so on.
std::string tableOf(int elements)
{
  std::string table = "collection,x,y,z\n";
  for (int i = 0; i < elements; ++i)
    table += "element " + std::to_string(i) + ",1,2,3\n";
  return table;
}

/// How the program is started.
struct Start {
  const char* kind = "vt100"; ///< of the terminal, as in TERM
  unsigned short rows = 24;
  unsigned short columns = 200;
  const char* pager = "cat";         ///< as in PAGER
  const char* option = "--no-color"; ///< of the program
  bool isByHand = false;             ///< by the user, in a shell
  std::string output = {}; ///< the file that standard output goes to; empty for the terminal
};

/// The program on a terminal, with a user who types.
class Terminal {
public:
  /// @param state  the folder for the state of programs
  Terminal(const std::string& file, const std::filesystem::path& state, const Start& start = {})
  {
    winsize size = {start.rows, start.columns, 0, 0};
    m_child = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_child != 0)
      return;
    setenv("TERM", start.kind, 1);
    setenv("PAGER", start.pager, 1);
    setenv("PS1", "shell> ", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("XDG_STATE_HOME", state.c_str(), 1);
    if (!start.output.empty())
      dup2(open(start.output.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
    if (start.isByHand)
      execl("/bin/sh", "sh", "-i", nullptr);
    else
      execl(POINT_COLLECTIONS_PROGRAM, "point-collections", start.option, file.c_str(), nullptr);
    _exit(127);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal()
  {
    if (m_child > 0) {
      kill(m_child, SIGKILL);
      waitpid(m_child, nullptr, 0);
    }
    if (m_terminal >= 0)
      close(m_terminal);
  }

  /// Types the keys and waits until the screen shows the text. After Enter it also waits for the
  /// next prompt, because keys between two prompts do not reach the editor.
  void typeAndExpect(const std::string& keys, const std::string& text)
  {
    typeAndExpect(keys, text, keys.ends_with('\r') ? "> " : "");
  }

  /// As above, but waits for another prompt.
  void typeAndExpect(const std::string& keys, const std::string& text, const std::string& prompt)
  {
    type(keys);
    std::string shown;
    while (!hasInOrder(shown, text, prompt) && readMore(shown)) {
    }
    EXPECT_TRUE(hasInOrder(shown, text, prompt))
        << "typed " << ::testing::PrintToString(keys) << " and waited for " << text << ", saw "
        << ::testing::PrintToString(shown);
  }

  /// As above, but waits for a question in place of the prompt.
  void typeAndBeAsked(const std::string& keys, const std::string& text)
  {
    typeAndExpect(keys, text, "discard or cancel: ");
  }

  /// Types the keys and waits for the program to end; returns its exit status.
  int typeAndLeave(const std::string& keys)
  {
    type(keys);
    std::string shown;
    while (readMore(shown)) {
    }
    if (!m_hasEnded)
      kill(m_child, SIGKILL);
    int status = 0;
    waitpid(m_child, &status, 0);
    m_child = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  /// Sends the program a signal and waits for its end; returns the signal that it ended by, 0 if it
  /// ended by itself.
  int endBy(int signal)
  {
    send(signal);
    std::string shown;
    while (readMore(shown)) {
    }
    return waitForSignal();
  }

  /// Closes the terminal and waits for the end of the program, as above.
  int endByClosing()
  {
    close(std::exchange(m_terminal, -1));
    return waitForSignal();
  }

  /// For each thread of the program but the first, the signals that it holds back, as in proc(5).
  std::vector<std::string> signalsHeldBackByOtherThreads() const
  {
    std::vector<std::string> masks;
    const auto program = std::filesystem::path("/proc") / std::to_string(m_child);
    for (const auto& thread : std::filesystem::directory_iterator(program / "task")) {
      if (thread.path().filename() == program.filename())
        continue;
      std::ifstream status(thread.path() / "status");
      std::string line;
      while (std::getline(status, line))
        if (line.starts_with("SigBlk:"))
          masks.push_back(line.substr(line.find('\t') + 1));
    }
    return masks;
  }

  /// Sends the program a signal.
  void send(int signal) const { kill(m_child, signal); }

private:
  int waitForSignal()
  {
    int status = 0;
    waitpid(std::exchange(m_child, -1), &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
  }

  static bool hasInOrder(const std::string& shown, const std::string& one, const std::string& other)
  {
    const auto found = shown.find(one);
    return found != std::string::npos && shown.find(other, found + one.size()) != std::string::npos;
  }

  void type(const std::string& keys) const
  {
    ASSERT_EQ(write(m_terminal, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }

  /// @return false if the program has ended, or shows nothing for a long time
  bool readMore(std::string& shown)
  {
    constexpr int patience = 20000; // milliseconds
    pollfd watched = {m_terminal, POLLIN, 0};
    if (poll(&watched, 1, patience) != 1)
      return false;
    std::array<char, 4096> buffer{};
    const auto count = read(m_terminal, buffer.data(), buffer.size());
    if (count > 0)
      shown.append(buffer.data(), static_cast<std::size_t>(count));
    m_hasEnded = count <= 0;
    return !m_hasEnded;
  }

  int m_terminal = -1;
  pid_t m_child = -1;
  bool m_hasEnded = false;
};

class InteractiveUser : public ::testing::Test {
protected:
  explicit InteractiveUser(const Start& start = {}) : m_terminal(m_points, m_state, start)
  {
    m_terminal.typeAndExpect("", "> ");
  }

  /// Cancels the first time, and answers with the end of the input the second time.
  void isAskedAtControlD()
  {
    m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
    m_terminal.typeAndBeAsked(controlD, "points.csv has unsaved changes.");
    m_terminal.typeAndExpect("cancel\r", "");
    m_terminal.typeAndBeAsked(controlD, "points.csv has unsaved changes.");
    EXPECT_EQ(m_terminal.typeAndLeave(controlD), 0);
  }

  static bool hasRecoveryFile(const std::filesystem::path& state)
  {
    std::error_code ignored;
    const std::filesystem::directory_iterator entries(state / "point-collections", ignored);
    return std::any_of(begin(entries), end(entries),
                       [](const auto& entry) { return entry.path().extension() == ".recovery"; });
  }

  /// Waits until the program has written what is unsaved.
  void waitForRecoveryFile() const
  {
    using namespace std::chrono_literals;
    for (int i = 0; i < 400; ++i) {
      if (hasRecoveryFile(m_state))
        return;
      std::this_thread::sleep_for(50ms);
    }
    FAIL() << "no recovery file in " << m_state;
  }

  TemporaryFolder m_folder;
  std::string m_points = m_folder
                             .write("points.csv",
                                    "collection,x,y,z\nParis,1,2,3\nPrague,1,2,3\n"
                                    "New York,4,5,6\nZürich,7,8,9\n")
                             .string();
  std::filesystem::path m_state = m_folder.path() / "state";
  Terminal m_terminal;
};

TEST(ARedirectedOutput, HasResultsButNoPromptsAndQuestions)
{
  const TemporaryFolder folder;
  const auto points = folder.write("points.csv", "collection,x,y,z\na,1,2,3\n").string();
  const auto output = folder.path() / "output";
  Terminal terminal(points, folder.path(), {.output = output.string()});

  terminal.typeAndExpect("", "Type help for the commands, quit to leave.", "> ");
  terminal.typeAndExpect("create G\r", "*> ", "");
  terminal.typeAndBeAsked("quit\r", "points.csv has unsaved changes.");
  EXPECT_EQ(terminal.typeAndLeave("discard\r"), 0);

  EXPECT_EQ(contentOf(output), "Opened points.csv: 1 element with 1 point.\n"
                               "Created G with 0 elements.\n");
}

TEST_F(InteractiveUser, SeesThatALongCommandGoesOn)
{
  const auto pipe = m_folder.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  m_terminal.typeAndExpect("create G\r", "Created G");
  m_terminal.typeAndExpect("open \"" + pipe.string() + "\" --discard\r", "… … ", " s");

  std::ofstream(pipe) << "collection,x,y,z\na,1,2,3\n";

  m_terminal.typeAndExpect("", " \rOpened "); // the line is gone
}

/// On a terminal that cannot move its cursor.
class InteractiveUserWithoutEditing : public InteractiveUser {
protected:
  InteractiveUserWithoutEditing() : InteractiveUser({.kind = "dumb"}) {}
};

TEST_F(InteractiveUser, IsToldHowToGetHelp)
{
  m_terminal.typeAndExpect("help\r", "leave the program");
}

TEST_F(InteractiveUser, CompletesCommandsAndNames)
{
  m_terminal.typeAndExpect(std::string("cr") + tab + "G Pari" + tab + "New" + tab + "Z" + tab +
                               "\r",
                           "Created G with 3 elements.");
  m_terminal.typeAndExpect("show\r", "Prague");
}

TEST_F(InteractiveUser, SeesTheWaysToCompleteAWord)
{
  m_terminal.typeAndExpect(std::string("create G P") + tab, "Paris   Prague");
  m_terminal.typeAndExpect("\r", "there is no element named P");
}

TEST_F(InteractiveUser, GoesOnAfterAMistake)
{
  m_terminal.typeAndExpect("create G Pari\r", "did you mean Paris?");
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  m_terminal.typeAndExpect("undo\r", "Undone: Create Group: G");
  EXPECT_EQ(m_terminal.typeAndLeave("quit\r"), 0);
}

TEST_F(InteractiveUser, RecallsEarlierLines)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndExpect("create H\r", "Created H with 0 elements.");
  m_terminal.typeAndExpect(std::string(up) + up + "\r", "Created \"G 2\" with 0 elements");
}

TEST_F(InteractiveUser, TypesNamesOfAnyLanguage)
{
  m_terminal.typeAndExpect("create Größe Zürich\r", "Created Größe with 1 element.");
  m_terminal.typeAndExpect("show Größe\r", "└─ Zürich");
}

TEST_F(InteractiveUser, PastesTabsAsBlanks)
{
  m_terminal.typeAndExpect(pasted("create\tP\tParis") + "\r", "Created P with 1 element.");
  m_terminal.typeAndExpect(std::string("add P Pra") + tab + "\r", "Added 1 element to P.");
}

/// The pager marks each line.
class InteractiveUserOfASmallTerminal : public InteractiveUser {
protected:
  InteractiveUserOfASmallTerminal() : InteractiveUser({.rows = 5, .pager = "sed s/^/paged:/"}) {}
};

TEST_F(InteractiveUserOfASmallTerminal, ReadsLongAnswersInThePager)
{
  m_terminal.typeAndExpect("show\r", "paged:   ├─ Paris");
  m_terminal.typeAndExpect("create G\r", "\x1B[?2004lCreated G with 0 elements.");
}

TEST_F(InteractiveUserOfASmallTerminal, LosesNothingByACrashWhileReading)
{
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  m_terminal.typeAndExpect("show --all\r", "paged:");

  EXPECT_EQ(m_terminal.endBy(SIGKILL), SIGKILL);

  EXPECT_TRUE(hasRecoveryFile(m_state));
}

class InteractiveUserWithoutPager : public InteractiveUser {
protected:
  InteractiveUserWithoutPager()
      : InteractiveUser({.rows = 5, .pager = "/no/such/pager 2>/dev/null"})
  {}
};

TEST_F(InteractiveUserWithoutPager, SeesLongAnswersWhole)
{
  m_terminal.typeAndExpect("show\r", "\n   ├─ Paris");
}

TEST_F(InteractiveUser, DropsALineWithControlC)
{
  m_terminal.typeAndExpect("create H", "create H");
  m_terminal.typeAndExpect(std::string(controlC) + "create G\r", "Created G with 0 elements.");
}

TEST_F(InteractiveUser, GoesToTheStartAndTheEndOfALine)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  const std::array<std::array<std::string, 2>, 4> startAndEnd = {
      {{"\x1B[H", "\x1B[F"}, {"\x1BOH", "\x1BOF"}, {"\x1B[1~", "\x1B[4~"}, {"\x1B[7~", "\x1B[8~"}}};
  for (const auto& [start, end] : startAndEnd)
    m_terminal.typeAndExpect("how" + start + "s" + end + " G\r", "G (0)");
}

TEST_F(InteractiveUser, MovesWordByWord)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  const std::array<std::array<std::string, 2>, 4> leftAndRight = {{{"\x1B[1;5D", "\x1B[1;5C"},
                                                                   {"\x1BOd", "\x1BOc"},
                                                                   {"\x1B[5D", "\x1B[5C"},
                                                                   {"\x1B[1;3D", "\x1B[1;3C"}}};
  for (const auto& [left, right] : leftAndRight)
    m_terminal.typeAndExpect("how G" + left + left + "s" + right + right + "\r", "G (0)");
}

TEST_F(InteractiveUser, DeletesTheCharacterAtTheCursor)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndExpect("show GX\x1B[D\x1B[3~\r", "G (0)");
}

TEST_F(InteractiveUser, FindsEarlierLinesWithWhatIsTyped)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndExpect("show G\r", "G (0)");
  m_terminal.typeAndExpect("cr\x1B[5~\r", "Created \"G 2\" with 0 elements");
}

TEST_F(InteractiveUser, IsNotLedIntoThePromptOfTheEditorItself)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndExpect("\x1Bxnonsense" + std::string(controlC) + "show G\r", "G (0)");
  m_terminal.typeAndExpect("\x1BXnonsense" + std::string(controlC) + "show G\r", "G (0)");
}

TEST_F(InteractiveUser, RecallsTheLinesOfAnEarlierRun)
{
  m_terminal.typeAndExpect("create Kept\r", "Created Kept");
  m_terminal.typeAndBeAsked("quit\r", "points.csv has unsaved changes.");
  EXPECT_EQ(m_terminal.typeAndLeave("discard\r"), 0);

  const auto file = m_state / "point-collections" / "history";
  EXPECT_EQ(contentOf(file), "create Kept\nquit\n");
  EXPECT_EQ(std::filesystem::status(file).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  Terminal next(m_points, m_state);
  next.typeAndExpect("", "> ");
  next.typeAndExpect(std::string(up) + up + "\r", "Created Kept with 0 elements.");
}

class InteractiveUserWithoutHistory : public InteractiveUser {
protected:
  InteractiveUserWithoutHistory() : InteractiveUser({.option = "--no-history"}) {}
};

TEST_F(InteractiveUserWithoutHistory, LeavesNoLinesOnTheDisk)
{
  m_terminal.typeAndExpect("show\r", "Prague");
  EXPECT_EQ(m_terminal.typeAndLeave("quit\r"), 0);

  EXPECT_FALSE(std::filesystem::exists(m_state / "point-collections" / "history"));
}

TEST_F(InteractiveUser, CompletesTheAnswerToAQuestion)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndBeAsked("quit\r", "points.csv has unsaved changes.");
  EXPECT_EQ(m_terminal.typeAndLeave(std::string("di") + tab + "\r"), 0);
}

TEST_F(InteractiveUser, SeesWideNamesInColumns)
{
  const auto points =
      m_folder.write("wide.csv", "collection,x,y,z\n東京,1,2,3\n東京都,1,2,3\n").string();
  Terminal terminal(points, m_state);
  terminal.typeAndExpect("", "> ");
  terminal.typeAndExpect(std::string("create G 東") + tab + tab, "東京    東京都");
}

TEST_F(InteractiveUser, StopsALongAnswerWithControlC)
{
  Terminal terminal(m_folder.write("long.csv", tableOf(20'000)).string(), m_state);
  terminal.typeAndExpect("", "> ");
  terminal.typeAndExpect("show --all\r", "element 10", "");
  terminal.typeAndExpect(controlC, "… stopped", "> ");
  terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
}

class InteractiveUserOfANarrowTerminal : public InteractiveUser {
protected:
  InteractiveUserOfANarrowTerminal() : InteractiveUser({.columns = 40}) {}
};

TEST_F(InteractiveUserOfANarrowTerminal, IsWelcomedInWholeWords)
{
  Terminal terminal(m_points, m_state, {.columns = 40});
  terminal.typeAndExpect("", "4 elements with 4\r\npoints. Type help", "> ");
}

TEST_F(InteractiveUserOfANarrowTerminal, ReadsWholeWords)
{
  m_terminal.typeAndExpect("help add\r", "into a group, or move\r\nthem within it.");
  m_terminal.typeAndExpect("create G Pari\r", "element named Pari;\r\ndid you mean Paris?");
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  m_terminal.typeAndExpect("create \"North and South\" Paris\r", "with 1 element\r\n(1 from G).");
}

TEST_F(InteractiveUser, SuspendsTheProgramWithControlZ)
{
  Terminal terminal(m_points, m_state, {.isByHand = true});
  terminal.typeAndExpect("", "shell> ");
  terminal.typeAndExpect(POINT_COLLECTIONS_PROGRAM " " + m_points + "\r", "Opened points.csv");
  for (int i = 0; i < 2; ++i) {
    terminal.typeAndExpect("show Paris\x1A", "Stopped", "shell> ");
    terminal.typeAndExpect("fg\r", "> show Paris", "");
    terminal.typeAndExpect("\r", "ungrouped");
  }
  terminal.typeAndExpect("quit\r", "shell> ", "");
  terminal.typeAndLeave("exit\r");
}

TEST_F(InteractiveUser, LeavesWithControlD)
{
  EXPECT_EQ(m_terminal.typeAndLeave(controlD), 0);
}

TEST_F(InteractiveUser, IsAskedBeforeChangesAreLostByQuit)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndBeAsked("quit\r", "points.csv has unsaved changes.");
  m_terminal.typeAndExpect("cancel\r", "");
  m_terminal.typeAndExpect("show G\r", "G (0)");
  m_terminal.typeAndBeAsked("quit\r", "points.csv has unsaved changes.");
  EXPECT_EQ(m_terminal.typeAndLeave("discard\r"), 0);
}

TEST_F(InteractiveUser, IsAskedBeforeChangesAreLostByControlD)
{
  isAskedAtControlD();
}

TEST_F(InteractiveUser, GoesOnAfterASignal)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  for (int i = 0; i < 3; ++i) {
    m_terminal.send(SIGINT);
    m_terminal.typeAndExpect("show G\r", "G (0)");
  }
  m_terminal.typeAndBeAsked("quit\r", "points.csv has unsaved changes.");
  EXPECT_EQ(m_terminal.typeAndLeave("discard\r"), 0);
}

TEST_F(InteractiveUserWithoutEditing, IsAskedBeforeChangesAreLostByControlD)
{
  isAskedAtControlD();
}

TEST_F(InteractiveUserWithoutEditing, LosesNothingByControlC)
{
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndExpect(std::string(controlC) + "show G\r", "G (0)");
}

TEST_F(InteractiveUser, SavesWhenAsked)
{
  const auto file = m_folder.path() / "my plan.tkpc";
  m_terminal.typeAndExpect("create G\r", "Created G with 0 elements.");
  m_terminal.typeAndBeAsked("quit\r", "Type save FILE, ");
  EXPECT_EQ(m_terminal.typeAndLeave("save \"" + file.string() + "\"\r"), 0);

  EXPECT_TRUE(contentOf(file).starts_with("\x89TKM"));
}

TEST_F(InteractiveUser, SeesWhetherChangesAreSaved)
{
  const auto file = (m_folder.path() / "p.tkpc").string();
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.\r\n" + marksPastes + "*");
  m_terminal.typeAndExpect("save " + file + "\r",
                           "Saved p.tkpc: 4 elements with 4 points in 1 group.\r\n" + marksPastes);
  m_terminal.typeAndExpect("open " + m_folder.path().string() + "/p.t" + tab + "\r",
                           "Opened p.tkpc: 4 elements");
  EXPECT_EQ(m_terminal.typeAndLeave("quit\r"), 0);
}

TEST_F(InteractiveUser, RecoversWhatASignalHasInterrupted)
{
  for (const int signal : {SIGTERM, SIGHUP}) {
    const auto state = m_folder.path() / std::to_string(signal);
    Terminal interrupted(m_points, state);
    interrupted.typeAndExpect("", "> ");
    interrupted.typeAndExpect("create G Paris\r", "Created G with 1 element.");
    EXPECT_EQ(interrupted.endBy(signal), signal);

    Terminal next(m_points, state);
    next.typeAndExpect("",
                       "changes to points.csv: 4 elements with 4 points in 1 group, written on ",
                       "recover, discard or later: ");
    next.typeAndExpect("recover\r", "Recovered points.csv");
    next.typeAndExpect("show G\r", "Paris");
    next.typeAndBeAsked("quit\r", "points.csv has unsaved changes.");
    EXPECT_EQ(next.typeAndLeave("discard\r"), 0);
    EXPECT_FALSE(hasRecoveryFile(state));
  }
}

TEST_F(InteractiveUser, IsNotKeptByAPipeThatNobodyWrites)
{
  const auto pipe = m_folder.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  m_terminal.typeAndExpect("select @\"" + pipe.string() + "\"\r", "pipe", "1 s");

  EXPECT_EQ(m_terminal.endBy(SIGTERM), SIGTERM);

  EXPECT_TRUE(hasRecoveryFile(m_state));
}

// When a window is closed, the shell tells its programs, and so does the system.
TEST_F(InteractiveUser, RecoversWhatSeveralSignalsHaveInterrupted)
{
  Terminal interrupted(m_folder.write("many.csv", tableOf(30'000)).string(), m_state);
  interrupted.typeAndExpect("", "> ");
  interrupted.typeAndExpect("create G *\r", "Created G with 30000 elements.");
  interrupted.send(SIGTERM);
  interrupted.typeAndExpect("", "(end of input)", "");

  EXPECT_NE(interrupted.endBy(SIGHUP), 0);

  EXPECT_TRUE(hasRecoveryFile(m_state));
}

TEST_F(InteractiveUser, IsOfferedUnsavedWorkByOpenToo)
{
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  EXPECT_EQ(m_terminal.endBy(SIGTERM), SIGTERM);

  const auto other = m_folder.write("other.csv", "collection,x,y,z\na,1,2,3\n").string();
  Terminal next(other, m_state);
  next.typeAndExpect("", "> ");
  next.typeAndExpect("open \"" + m_points + "\"\r", "Opened points.csv",
                     "recover, discard or later: ");
  next.typeAndExpect("recover\r", "Recovered points.csv");
  next.typeAndExpect("show G\r", "Paris");
}

// Libedit's signal handlers only work on the thread that reads.
TEST_F(InteractiveUser, IsInterruptedOnTheFirstThreadOnly)
{
  const auto masks = m_terminal.signalsHeldBackByOtherThreads();

  ASSERT_FALSE(masks.empty()) << "the progress line has a thread";
  for (const auto& mask : masks) {
    const auto signals = std::stoull(mask, nullptr, 16);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGTSTP, SIGCONT, SIGWINCH})
      EXPECT_NE(signals >> (signal - 1) & 1, 0U) << strsignal(signal) << " in " << mask;
  }
}

TEST_F(InteractiveUser, RecoversWhatAClosedTerminalHasInterrupted)
{
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  EXPECT_EQ(m_terminal.endByClosing(), SIGHUP);

  Terminal next(m_points, m_state);
  next.typeAndExpect("", "An earlier run ended", "recover, discard or later: ");
  next.typeAndExpect("discard\r", "");
  EXPECT_EQ(next.typeAndLeave("quit\r"), 0);
  EXPECT_FALSE(hasRecoveryFile(m_state));
}

TEST_F(InteractiveUser, RecoversAfterACrashWhatWasDoneBeforeARest)
{
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  waitForRecoveryFile();
  m_terminal.typeAndExpect("create H\r", "Created H with 0 elements.");
  EXPECT_EQ(m_terminal.endBy(SIGKILL), SIGKILL);

  Terminal next(m_points, m_state);
  next.typeAndExpect("", "in 1 group, written on ", "recover, discard or later: ");
  next.typeAndExpect("later\r", "");
  EXPECT_EQ(next.typeAndLeave("quit\r"), 0);
  Terminal third(m_points, m_state);
  third.typeAndExpect("", "in 1 group, written on ", "recover, discard or later: ");
}

TEST_F(InteractiveUser, LosesNothingWhenNobodyAnswers)
{
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  m_terminal.typeAndBeAsked(controlD, "points.csv has unsaved changes.");
  EXPECT_EQ(m_terminal.typeAndLeave(controlD), 0);

  Terminal next(m_points, m_state);
  next.typeAndExpect("", "An earlier run ended", "recover, discard or later: ");
}

TEST_F(InteractiveUserWithoutEditing, RecoversWhatASignalHasInterrupted)
{
  m_terminal.typeAndExpect("create G Paris\r", "Created G with 1 element.");
  EXPECT_EQ(m_terminal.endBy(SIGTERM), SIGTERM);

  Terminal next(m_points, m_state, {.kind = "dumb"});
  next.typeAndExpect("", "An earlier run ended", "recover, discard or later: ");
}

}
}
