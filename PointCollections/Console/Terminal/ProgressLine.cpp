// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/ProgressLine.h"

#include "PointCollections/Console/Terminal/Terminal.h"
#include "PointCollections/Console/Text/DisplayWidth.h"
#include "PointCollections/Text/Progress.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <new>
#include <system_error>
#include <utility>

namespace Tarvik::PointCollections {

ProgressLine::ProgressLine(std::ostream* terminal) : m_terminal(terminal)
{
  if (m_terminal == nullptr)
    return;
  try {
    // Libedit's signal handlers crash on a thread that does not read.
    doWithoutSignals([this] { m_thread = std::thread([this] { run(); }); });
  } catch (const std::system_error&) {
    m_terminal = nullptr; // the work is more important than the line
  }
}

ProgressLine::~ProgressLine()
{
  end();
  if (!m_thread.joinable())
    return;
  {
    const std::lock_guard lock(m_mutex);
    m_isOver = true;
  }
  m_change.notify_one();
  m_thread.join();
}

void ProgressLine::begin(std::string_view what)
{
  constexpr std::size_t longestText = 40;
  if (m_terminal == nullptr)
    return;
  Progress::reset();
  auto text = printable(abbreviated(what, longestText));
  const std::lock_guard lock(m_mutex);
  m_what = std::move(text);
  m_start = Clock::now();
  m_change.notify_one();
}

void ProgressLine::end()
{
  const std::lock_guard lock(m_mutex);
  m_what.clear();
  clear();
}

void ProgressLine::hide()
{
  const std::lock_guard lock(m_mutex);
  m_isHidden = true;
  clear();
}

void ProgressLine::goOn()
{
  const std::lock_guard lock(m_mutex);
  m_isHidden = false;
  m_start = Clock::now();
}

/// What the thread does.
void ProgressLine::run()
{
  std::unique_lock lock(m_mutex);
  while (!m_isOver) {
    m_change.wait(lock, [this] { return m_isOver || !m_what.empty(); });
    m_change.wait_for(lock, patience, [this] { return m_isOver; });
    const auto waited = Clock::now() - m_start;
    if (m_what.empty() || m_isHidden || waited < patience)
      continue;
    try {
      show(waited);
    } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): the work goes on without it
    }
  }
}

void ProgressLine::show(Clock::duration waited)
{
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(waited).count();
  const auto percent = Progress::percent();
  const auto text = percent
                        // xgettext:no-c-format
                        // For translators: what the program does, how far it is, and seconds
                        ? translated("{} … {} % after {} s", m_what, *percent, seconds)
                        // For translators: what the program does, and seconds
                        : translated("{} … {} s", m_what, seconds);
  clear();
  *m_terminal << text << std::flush;
  m_width = displayWidth(text);
}

/// Overwrites the line with blanks: not every terminal knows how to erase.
void ProgressLine::clear()
{
  if (m_width > 0)
    *m_terminal << '\r' << std::string(m_width, ' ') << '\r' << std::flush;
  m_width = 0;
}

ShownWork::ShownWork(ProgressLine* line, std::string_view what) : m_line(line)
{
  if (m_line != nullptr)
    m_line->begin(what);
}

ShownWork::~ShownWork()
{
  if (m_line != nullptr)
    m_line->end();
}

HiddenWork::HiddenWork(ProgressLine* line) : m_line(line)
{
  if (m_line != nullptr)
    m_line->hide();
}

HiddenWork::~HiddenWork()
{
  if (m_line != nullptr)
    m_line->goOn();
}

}
