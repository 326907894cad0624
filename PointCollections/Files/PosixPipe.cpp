// SPDX-License-Identifier: MIT
#include "PointCollections/Files/Pipe.h"

#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/SystemReason.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

constexpr int millisecondsBetweenChecks = 100;

/// An open pipe, which is closed in the end.
class Pipe {
public:
  /// Does not wait for a writer: nobody could stop that.
  explicit Pipe(const std::filesystem::path& path)
      : m_path(path), m_handle(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
  {
    if (m_handle < 0)
      fail(translated("the file cannot be opened ({})", lastReason()));
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() { close(m_handle); }

  /// Adds what comes next.
  /// @return false at the end
  bool readSome(std::string& text) const
  {
    waitForMore();
    std::array<char, 65536> buffer{};
    const auto count = read(m_handle, buffer.data(), buffer.size());
    if (count < 0 && errno != EAGAIN && errno != EINTR)
      fail(translated("reading the file failed ({})", lastReason()));
    text.append(buffer.data(), static_cast<std::size_t>(count > 0 ? count : 0));
    return count != 0;
  }

private:
  void waitForMore() const
  {
    pollfd watched = {m_handle, POLLIN, 0};
    do {
      checkInterruption();
    } while (poll(&watched, 1, millisecondsBetweenChecks) <= 0);
  }

  static std::string lastReason() { return systemReason({errno, std::generic_category()}); }

  [[noreturn]] void fail(const std::string& message) const
  {
    throw UserError(fmt::format("{}: {}", printable(Utf8::fromPath(m_path)), message));
  }

  std::filesystem::path m_path;
  int m_handle;
};

}

std::string readPipe(const std::filesystem::path& pipe)
{
  const Pipe reader(pipe);
  std::string text;
  while (reader.readSome(text)) {
  }
  return text;
}

}
