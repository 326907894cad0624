// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

int exitStatus(int result)
{
  const bool hasExited = (result & 0x7F) == 0;
  return hasExited ? (result >> 8) & 0xFF : -1;
}

std::string forShell(const std::string& text)
{
  const std::string special = "\"\\$`";
  std::string result = "\"";
  for (const char c : text) {
    if (special.find(c) != std::string::npos)
      result += '\\';
    result += c;
  }
  return result + '"';
}

[[noreturn]] void fail(const std::string& what)
{
  throw std::system_error(errno, std::generic_category(), what);
}

/// Returns only if the program cannot be started.
void becomeProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments)
{
  auto texts = arguments;
  texts.insert(texts.begin(), program.string());
  std::vector<char*> pointers(texts.size() + 1); // the last one stays null
  std::transform(texts.begin(), texts.end(), pointers.begin(),
                 [](auto& text) { return text.data(); });
  execv(program.c_str(), pointers.data());
}

}

int runProcess(const std::filesystem::path& program,
               const std::vector<std::string>& arguments,
               const Streams& streams)
{
  std::string command = forShell(program.string());
  for (const auto& argument : arguments)
    command += ' ' + forShell(argument);
  command += " <" + forShell(streams.input.string()) + " >" + forShell(streams.output.string()) +
             " 2>" + forShell(streams.errors.string());
  return exitStatus(std::system(command.c_str())); // NOLINT(cert-env33-c): a shell is wanted
}

RunningProcess::RunningProcess(const std::filesystem::path& program,
                               const std::vector<std::string>& arguments)
{
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0)
    fail("no pipe");
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  const pid_t process = fork();
  if (process < 0)
    fail("no process");
  if (process == 0) {
    dup2(ends[1], STDOUT_FILENO);
    close(ends[1]);
    becomeProgram(program, arguments);
    _exit(127);
  }
  close(ends[1]);
  m_process = process;
  m_output = ends[0];
}

RunningProcess::~RunningProcess()
{
  const auto process = static_cast<pid_t>(m_process);
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
  close(static_cast<int>(m_output));
}

std::string RunningProcess::read() const
{
  std::array<char, 4096> text{};
  const auto count = ::read(static_cast<int>(m_output), text.data(), text.size());
  return {text.data(), static_cast<std::size_t>(count > 0 ? count : 0)};
}

}
