// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Process.h"

#include <windows.h>

#include <array>
#include <memory>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

[[noreturn]] void fail(const std::string& what)
{
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

/// Opens a file so that a started program inherits it.
Handle open(const std::filesystem::path& file, DWORD access, DWORD disposition)
{
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  auto* const handle =
      CreateFileW(file.wstring().c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                  disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE)
    fail("cannot open " + file.string());
  return {handle, &CloseHandle};
}

/// Quotes the text for the parser of the started program: a backslash is plain except before a
/// quote.
std::wstring quoted(const std::wstring& text)
{
  std::wstring result = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : text) {
    if (c == L'"')
      result.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    result += c;
  }
  return result.append(backslashes, L'\\') + L'"';
}

std::wstring commandLine(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments)
{
  std::wstring line = quoted(program.wstring());
  for (const auto& argument : arguments)
    line +=
        L' ' +
        quoted(std::filesystem::path(std::u8string(argument.begin(), argument.end())).wstring());
  return line;
}

/// Starts a program with these standard streams and returns its process.
Handle start(const std::filesystem::path& program,
             const std::vector<std::string>& arguments,
             HANDLE input,
             HANDLE output,
             HANDLE errors)
{
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input;
  startup.hStdOutput = output;
  startup.hStdError = errors;

  PROCESS_INFORMATION started = {};
  auto line = commandLine(program, arguments);
  if (CreateProcessW(program.wstring().c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                     nullptr, &startup, &started) == 0)
    fail("cannot start " + program.string());
  CloseHandle(started.hThread);
  return {started.hProcess, &CloseHandle};
}

/// Both ends of a pipe. A started program inherits the second one, for writing.
std::array<Handle, 2> openPipe()
{
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (CreatePipe(&reading, &writing, nullptr, 0) == 0)
    fail("no pipe");
  SetHandleInformation(writing, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  return {Handle(reading, &CloseHandle), Handle(writing, &CloseHandle)};
}

HANDLE handleOf(std::intptr_t value)
{
  return reinterpret_cast<HANDLE>(value);
}

}

int runProcess(const std::filesystem::path& program,
               const std::vector<std::string>& arguments,
               const Streams& streams)
{
  const auto input = open(streams.input, GENERIC_READ, OPEN_EXISTING);
  const auto output = open(streams.output, GENERIC_WRITE, CREATE_ALWAYS);
  const auto errors = open(streams.errors, GENERIC_WRITE, CREATE_ALWAYS);
  const auto process = start(program, arguments, input.get(), output.get(), errors.get());

  WaitForSingleObject(process.get(), INFINITE);
  DWORD status = 0;
  if (GetExitCodeProcess(process.get(), &status) == 0)
    fail("no exit status of " + program.string());
  const bool hasCrashed = status >= 0x80000000; // the codes of unhandled exceptions
  return hasCrashed ? -1 : static_cast<int>(status);
}

RunningProcess::RunningProcess(const std::filesystem::path& program,
                               const std::vector<std::string>& arguments)
{
  const auto input = open("NUL", GENERIC_READ, OPEN_EXISTING);
  const auto errors = open("NUL", GENERIC_WRITE, OPEN_EXISTING);
  auto [reading, writing] = openPipe();
  auto process = start(program, arguments, input.get(), writing.get(), errors.get());
  m_process = reinterpret_cast<std::intptr_t>(process.release());
  m_output = reinterpret_cast<std::intptr_t>(reading.release());
}

RunningProcess::~RunningProcess()
{
  TerminateProcess(handleOf(m_process), 1);
  WaitForSingleObject(handleOf(m_process), INFINITE);
  CloseHandle(handleOf(m_process));
  CloseHandle(handleOf(m_output));
}

std::string RunningProcess::read() const
{
  std::array<char, 4096> text{};
  DWORD count = 0;
  const auto isRead =
      ReadFile(handleOf(m_output), text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
  return {text.data(), isRead != 0 ? count : 0};
}

}
