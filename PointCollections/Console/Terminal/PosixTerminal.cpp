// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/Terminal.h"

#include "PointCollections/Text/Interruption.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace Tarvik::PointCollections {
namespace {

/// Holds back the signals for this thread while it lives.
class SignalsHeldBack {
public:
  SignalsHeldBack()
  {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, &m_before);
  }
  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;
  ~SignalsHeldBack() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
  sigset_t m_before = {};
};

}

bool isInputTerminal()
{
  return isatty(STDIN_FILENO) != 0;
}

bool isOutputTerminal()
{
  return isatty(STDOUT_FILENO) != 0;
}

bool isErrorTerminal()
{
  return isatty(STDERR_FILENO) != 0;
}

std::ostream& terminalOutput()
{
  if (isOutputTerminal())
    return std::cout;
  if (isErrorTerminal())
    return std::cerr;
  static std::ofstream terminal("/dev/tty"); // without a terminal, what is written to it is lost
  return terminal;
}

bool isOutputAbandoned()
{
  pollfd output = {STDOUT_FILENO, POLLOUT, 0};
  return poll(&output, 1, 0) == 1 && (output.revents & (POLLERR | POLLHUP)) != 0;
}

void endAsAbandoned()
{
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
}

void prepareTerminal()
{
  std::signal(SIGPIPE, SIG_IGN); // or the program could not warn of unsaved changes
}

void catchInterrupts()
{
  struct sigaction action = {};
  action.sa_handler = [](int) { Interruptible::request(); };
  action.sa_flags = SA_RESTART; // reading and writing go on
  sigaction(SIGINT, &action, nullptr);
}

void doWithoutSignals(const std::function<void()>& work)
{
  const SignalsHeldBack whileWorking;
  work();
}

std::optional<TerminalSize> terminalSize()
{
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0)
    return std::nullopt;
  return TerminalSize{size.ws_row, size.ws_col};
}

bool showInPager(const std::string& text)
{
  constexpr int commandNotFound = 127; // the exit status of the shell
  const char* chosen = std::getenv("PAGER");
  const std::string command = chosen != nullptr ? chosen : "less";
  if (command.empty() || command == "cat")
    return false;
  setenv("LESS", "FRX", 0); // colours, and no other screen; unless the user wants something else
  setenv("LESSCHARSET", "utf-8", 0);
  // NOLINTNEXTLINE(cert-env33-c): the user says which program
  std::FILE* pager = popen(command.c_str(), "w");
  if (pager == nullptr)
    return false;
  std::fwrite(text.data(), 1, text.size(), pager); // fails if the user leaves before the end
  std::fputc('\n', pager);
  const int status = pclose(pager);
  return !(WIFEXITED(status) && WEXITSTATUS(status) == commandNotFound);
}

std::vector<std::string> programArguments(int argc, char** argv)
{
  return {argv + std::min(argc, 1), argv + argc};
}

}
