// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/Recovery.h"

#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/SystemReason.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// Writing takes at most this part of the time.
constexpr int shareOfWriting = 20;

/// In the user's language if it is a reason of the operating system that has a translation; then
/// with the file, if any. In English, what() may tell more.
std::string reasonOf(const std::exception& error)
{
  const auto* const ofSystem = dynamic_cast<const std::system_error*>(&error);
  if (ofSystem == nullptr)
    return error.what();
  const auto reason = systemReason(ofSystem->code());
  if (reason == ofSystem->code().default_error_condition().message())
    return error.what();
  const auto* const ofFile = dynamic_cast<const std::filesystem::filesystem_error*>(&error);
  return ofFile != nullptr ? Utf8::fromPath(ofFile->path1()) + ": " + reason : reason;
}

}

Recovery::Recovery(Editor& editor, std::filesystem::path stateFolder)
    : m_editor(editor), m_stateFolder(std::move(stateFolder))
{}

void Recovery::changed(Time now) noexcept
{
  if (!m_editor.hasUnsavedChanges()) {
    clear();
    return;
  }
  m_lastChange = now;
  if (!m_firstChange)
    m_firstChange = now;
}

std::optional<Recovery::Time> Recovery::dueTime() const noexcept
{
  if (!m_firstChange)
    return std::nullopt;
  const Time wanted = std::min<Time>(m_lastChange + rest, *m_firstChange + longestDelay);
  return m_nextWrite ? std::max(wanted, *m_nextWrite) : wanted;
}

void Recovery::pause(Time now) noexcept
{
  const auto due = dueTime();
  if (due && *due <= now)
    write(now);
}

bool Recovery::keep(Time now) noexcept
{
  if (m_firstChange && m_editor.hasUnsavedChanges())
    write(now);
  return !m_firstChange;
}

void Recovery::clear() noexcept
{
  m_firstChange.reset();
  if (m_file)
    m_file->remove();
  m_file.reset();
}

void Recovery::adopt(UnsavedWork work)
{
  m_document = m_editor.opened().file;
  m_firstChange.reset();
  m_file = std::move(work.file);
}

std::string Recovery::takeProblem()
{
  if (m_problem == m_toldProblem)
    return {};
  m_toldProblem = m_problem;
  return m_problem;
}

void Recovery::write(Time now) noexcept
{
  const auto start = Clock::now();
  try {
    const Uninterruptible untilWritten; // the end of the program may be near
    writeSomewhere();
    m_firstChange.reset();
    m_problem.clear();
  } catch (const std::exception& error) {
    try {
      m_problem = translated("no copy of the unsaved changes can be kept for the case of a crash "
                             "({}); save often",
                             printable(reasonOf(error)));
    } catch (...) { // there is not even memory for the text
      m_problem.clear();
    }
  }
  const auto interval =
      std::max<Clock::duration>(shortestInterval, (Clock::now() - start) * shareOfWriting);
  m_nextWrite = now + interval;
}

/// The file whose access rights the copy gets: none in the state folder, which nobody else can
/// read.
std::filesystem::path Recovery::modelFor(const RecoveryFile& file) const
{
  return file.path().parent_path() == m_stateFolder ? std::filesystem::path()
                                                    : m_editor.opened().file;
}

/// Keeps to the file that was made before, as long as it can be written. Once another document is
/// open, its file is not the right one any more.
void Recovery::writeSomewhere()
{
  const auto& opened = m_editor.opened();
  const auto bytes = saveRecovery({opened, std::chrono::system_clock::now()});
  if (m_file && m_document == opened.file) {
    m_file->write(bytes, modelFor(*m_file));
    return;
  }
  std::exception_ptr problem = std::make_exception_ptr(
      // For translators: the reason why no copy can be kept; in parentheses
      std::runtime_error(translated("the system names no folder for that")));
  for (const auto& place : recoveryPlaces(opened.file, m_stateFolder)) {
    try {
      auto file = RecoveryFile::make(place);
      file.write(bytes, modelFor(file));
      clear();
      m_file = std::move(file);
      m_document = opened.file;
      return;
    } catch (const std::system_error&) {
      problem = std::current_exception();
    }
  }
  std::rethrow_exception(problem);
}

}
