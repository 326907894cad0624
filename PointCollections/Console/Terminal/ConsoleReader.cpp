// SPDX-License-Identifier: MIT
// The Windows console edits and recalls lines itself.
#include "PointCollections/Console/Terminal/LineReader.h"
#include "PointCollections/Console/Terminal/Utf16.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <windows.h>

#include <array>
#include <iostream>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr wchar_t controlZ = 0x1A;

class ConsoleReader : public LineReader {
public:
  ConsoleReader(HANDLE console, InputWait wait) : m_console(console), m_wait(std::move(wait)) {}

  std::optional<std::string> readLine(const std::string& prompt) override
  {
    std::cout << prompt << std::flush;
    if (!m_wait())
      return std::nullopt;
    std::wstring line;
    while (!line.ends_with(L'\n')) {
      if (line.size() > longestLine)
        throw UserError(translated("this line is too long; expected a shorter one"));
      const auto part = read();
      if (!part)
        return std::nullopt;
      if (isAskedToEnd())
        return std::nullopt;
      if (part->empty()) {
        std::cout << '\n';
        return "";
      }
      line += *part;
    }
    if (line.front() == controlZ)
      return std::nullopt;
    return toUtf8(std::wstring_view(line).substr(0, line.find_last_not_of(L"\r\n") + 1));
  }

private:
  /// A part of a line; empty after Ctrl-C; nothing if the console is gone. Does not use std::cin,
  /// which reads non-ASCII characters from a UTF-8 console as zeros.
  std::optional<std::wstring> read() const
  {
    std::array<wchar_t, 4096> buffer{};
    DWORD count = 0;
    SetLastError(ERROR_SUCCESS);
    const bool isRead = ReadConsoleW(m_console, buffer.data(), static_cast<DWORD>(buffer.size()),
                                     &count, nullptr) != 0;
    if (count == 0 && GetLastError() != ERROR_OPERATION_ABORTED)
      return std::nullopt;
    return isRead ? std::optional<std::wstring>(std::in_place, buffer.data(), count) : std::nullopt;
  }

  HANDLE m_console;
  InputWait m_wait;
};

}

// NOLINTNEXTLINE(performance-unnecessary-value-param): other readers keep it
std::unique_ptr<LineReader>
makeEditingReader(Completer, InputWait wait, const std::filesystem::path&)
{
  return std::make_unique<ConsoleReader>(GetStdHandle(STD_INPUT_HANDLE), std::move(wait));
}

}
