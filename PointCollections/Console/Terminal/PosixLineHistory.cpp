// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/LineHistory.h"
#include "PointCollections/Text/Utf8.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <string_view>
#include <system_error>
#include <thread>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t mostBytes = std::size_t(4) << 20U; ///< that are read

/// The file, locked while this lives; may be unusable.
class LockedFile {
public:
  LockedFile(const std::filesystem::path& file, int flags)
      : m_handle(
            file.empty()
                ? -1
                : open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, S_IRUSR | S_IWUSR))
  {
    struct stat status = {};
    const bool isFile = m_handle >= 0 && fstat(m_handle, &status) == 0 && S_ISREG(status.st_mode);
    m_isUsable = isFile && tryLock();
    m_size = isFile ? static_cast<std::size_t>(status.st_size) : 0;
  }
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile()
  {
    if (m_handle >= 0)
      close(m_handle); // also lets go of the lock
  }

  bool isUsable() const { return m_isUsable; }

  /// The last bytes, from the start of a line on.
  std::string lastLines() const
  {
    std::string text(std::min(m_size, mostBytes), '\0');
    const auto start = m_size - text.size();
    const auto count = pread(m_handle, text.data(), text.size(), static_cast<off_t>(start));
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(0, count)));
    if (start > 0)
      text.erase(0, text.find('\n') + 1);
    return text;
  }

  void append(const std::string& text) const
  {
    static_cast<void>(fchmod(m_handle, S_IRUSR | S_IWUSR) == 0); // whoever has made it
    static_cast<void>(pwrite(m_handle, text.data(), text.size(), static_cast<off_t>(m_size)) >= 0);
  }

  /// Needs no room on the disk: the text is not longer than the content.
  void replace(const std::string& text) const
  {
    if (pwrite(m_handle, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()))
      static_cast<void>(ftruncate(m_handle, static_cast<off_t>(text.size())) == 0);
  }

private:
  /// Does not wait long: the user waits, too.
  bool tryLock() const
  {
    constexpr int mostTries = 50;
    for (int i = 0; i < mostTries; ++i) {
      if (flock(m_handle, LOCK_EX | LOCK_NB) == 0)
        return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
  }

  int m_handle;
  bool m_isUsable = false;
  std::size_t m_size = 0;
};

/// Whether a user can have typed it: UTF-8 without control characters.
bool isTypable(std::string_view line)
{
  return !line.empty() && Utf8::findInvalid(line) == std::string_view::npos &&
         std::none_of(line.begin(), line.end(),
                      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

std::vector<std::string> linesOf(std::string_view text)
{
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    if (isTypable(text.substr(0, end)))
      lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}

std::vector<std::string> LineHistory::read() const
{
  const LockedFile file(m_file, O_RDWR);
  if (!file.isUsable())
    return {};
  auto lines = linesOf(file.lastLines());
  if (lines.size() <= mostLines)
    return lines;
  const bool isLong = lines.size() > 2 * mostLines;
  lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(mostLines));
  if (isLong) {
    std::string text;
    for (const auto& line : lines)
      text += line + '\n';
    file.replace(text);
  }
  return lines;
}

void LineHistory::add(const std::string& line) const
{
  if (m_file.empty() || line.size() > longestLine || !isTypable(line))
    return;
  std::error_code error;
  const auto folder = m_file.parent_path();
  if (std::filesystem::create_directories(folder, error)) // only for programs of this kind
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
  const LockedFile file(m_file, O_RDWR | O_CREAT);
  if (file.isUsable())
    file.append(line + '\n');
}

}
