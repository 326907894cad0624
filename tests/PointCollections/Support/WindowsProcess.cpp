// SPDX-License-Identifier: MIT
#include "PointCollections/Support/Process.h"

#include <windows.h>

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

/// The text as the started program's own parser gives it back: backslashes are plain except in
/// front of a quote.
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

}

int runProcess(const std::filesystem::path& program,
               const std::vector<std::string>& arguments,
               const Streams& streams)
{
  const auto input = open(streams.input, GENERIC_READ, OPEN_EXISTING);
  const auto output = open(streams.output, GENERIC_WRITE, CREATE_ALWAYS);
  const auto errors = open(streams.errors, GENERIC_WRITE, CREATE_ALWAYS);
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input.get();
  startup.hStdOutput = output.get();
  startup.hStdError = errors.get();

  PROCESS_INFORMATION started = {};
  auto line = commandLine(program, arguments);
  if (CreateProcessW(program.wstring().c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                     nullptr, &startup, &started) == 0)
    fail("cannot start " + program.string());
  const Handle thread(started.hThread, &CloseHandle);
  const Handle process(started.hProcess, &CloseHandle);

  WaitForSingleObject(process.get(), INFINITE);
  DWORD status = 0;
  if (GetExitCodeProcess(process.get(), &status) == 0)
    fail("no exit status of " + program.string());
  const bool hasCrashed = status >= 0x80000000; // the codes of exceptions that nobody handles
  return hasCrashed ? -1 : static_cast<int>(status);
}

}
