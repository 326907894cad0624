// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <ostream>
#include <string>
#include <string_view>
#include <thread>

namespace Tarvik::PointCollections {

/// A line on the terminal that says what the program is busy with. It appears after a second,
/// counts the seconds, and is gone again at the end. Work that knows how far it is tells it by
/// Progress::tell().
///
/// Print nothing on the terminal between begin() and end(), except between hide() and goOn().
class ProgressLine {
public:
  /// How long the user waits without a line.
  static constexpr std::chrono::milliseconds patience = std::chrono::seconds(1);

  /// @param terminal  must outlive the line; null if nothing is to be shown
  explicit ProgressLine(std::ostream* terminal);
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine();

  /// Starts work.
  /// @param what  such as "sort": control characters are escaped, and a long text is cut
  void begin(std::string_view what);

  /// Ends the work.
  void end();

  /// Takes the line away, for a question to the user.
  void hide();

  /// Ends hide(). The user waits from now on.
  void goOn();

private:
  using Clock = std::chrono::steady_clock;

  void run();
  void show(Clock::duration waited);
  void clear();

  std::ostream* m_terminal;
  std::mutex m_mutex;
  std::condition_variable m_change;
  std::string m_what; ///< empty without work
  bool m_isHidden = false;
  bool m_isOver = false;
  std::size_t m_width = 0; ///< of what is shown, in columns
  Clock::time_point m_start;
  std::thread m_thread; // the last one: it uses the others
};

/// Shows work on a line while it lives.
class ShownWork {
public:
  /// @param line  null if nothing is to be shown
  ShownWork(ProgressLine* line, std::string_view what);
  ShownWork(const ShownWork&) = delete;
  ShownWork& operator=(const ShownWork&) = delete;
  ~ShownWork();

private:
  ProgressLine* m_line;
};

/// Hides a line while it lives.
class HiddenWork {
public:
  /// @param line  null if nothing is shown
  explicit HiddenWork(ProgressLine* line);
  HiddenWork(const HiddenWork&) = delete;
  HiddenWork& operator=(const HiddenWork&) = delete;
  ~HiddenWork();

private:
  ProgressLine* m_line;
};

}
