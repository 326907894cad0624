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
#include <fstream>
#include <string>
#include <thread>
#include <utility>

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

/// The program on a terminal, with a user who types.
class Terminal {
public:
  /// @param state  the folder for the state of programs
  /// @param kind   of the terminal, as in TERM
  /// @param rows   of the terminal
  /// @param pager  as in PAGER
  /// @param output the file that standard output goes to; empty for the terminal
  Terminal(const std::string& file,
           const std::filesystem::path& state,
           const char* kind = "vt100",
           unsigned short rows = 24,
           const char* pager = "cat",
           const std::string& output = {})
  {
    winsize size = {rows, 200, 0, 0};
    m_child = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_child != 0)
      return;
    setenv("TERM", kind, 1);
    setenv("PAGER", pager, 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("XDG_STATE_HOME", state.c_str(), 1);
    if (!output.empty())
      dup2(open(output.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
    execl(POINT_COLLECTIONS_PROGRAM, "point-collections", "--no-color", file.c_str(), nullptr);
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
  explicit InteractiveUser(const char* kind = "vt100",
                           unsigned short rows = 24,
                           const char* pager = "cat")
      : m_terminal(m_points, m_state, kind, rows, pager)
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

  /// Waits until the program has written what is unsaved.
  void waitForRecoveryFile() const
  {
    using namespace std::chrono_literals;
    const auto folder = m_state / "point-collections";
    const auto isWritten = [](const auto& entry) {
      return entry.path().extension() == ".recovery";
    };
    for (int i = 0; i < 400; ++i) {
      std::error_code ignored;
      const std::filesystem::directory_iterator entries(folder, ignored);
      if (std::any_of(begin(entries), end(entries), isWritten))
        return;
      std::this_thread::sleep_for(50ms);
    }
    FAIL() << "no recovery file in " << folder;
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
  Terminal terminal(points, folder.path(), "vt100", 24, "cat", output.string());

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
  InteractiveUserWithoutEditing() : InteractiveUser("dumb") {}
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
  InteractiveUserOfASmallTerminal() : InteractiveUser("vt100", 5, "sed s/^/paged:/") {}
};

TEST_F(InteractiveUserOfASmallTerminal, ReadsLongAnswersInThePager)
{
  m_terminal.typeAndExpect("show\r", "paged:   ├─ Paris");
  m_terminal.typeAndExpect("create G\r", "\x1B[?2004lCreated G with 0 elements.");
}

class InteractiveUserWithoutPager : public InteractiveUser {
protected:
  InteractiveUserWithoutPager() : InteractiveUser("vt100", 5, "/no/such/pager 2>/dev/null") {}
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
    EXPECT_TRUE(std::filesystem::is_empty(state / "point-collections"));
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
  EXPECT_TRUE(std::filesystem::is_empty(m_state / "point-collections"));
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

  Terminal next(m_points, m_state, "dumb");
  next.typeAndExpect("", "An earlier run ended", "recover, discard or later: ");
}

}
}
