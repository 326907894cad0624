// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Editor/Editor.h"
#include "PointCollections/Recovery/UnsavedWork.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace Tarvik::PointCollections {

/// Keeps a copy of an editor's unsaved work on the disk, so that a crash or a signal loses little
/// of it. findUnsavedWork() finds the copy at the next start.
///
/// The program calls changed() after every change, and pause() while it waits for the user, at
/// dueTime() at the latest: from its event loop or a timer. Recovery has no threads and never
/// writes at another time. It writes when the user rests for a moment, every few seconds at most,
/// and less often if writing takes long.
///
/// The copy is beside the project. If there is no project yet, or nothing can be written there, it
/// is in the state folder. Each program has its own, also for the same document.
class Recovery {
public:
  using Clock = std::chrono::steady_clock;
  using Time = Clock::time_point;

  /// So long the user must have made no change before the copy is written.
  static constexpr std::chrono::seconds rest{2};

  /// Changes are written after that time even if the user never rests.
  static constexpr std::chrono::seconds longestDelay{10};

  /// So long the copy is not written again.
  static constexpr std::chrono::seconds shortestInterval{5};

  /// @param editor       must outlive this
  /// @param stateFolder  made when it is needed; may be empty
  explicit Recovery(Editor& editor, std::filesystem::path stateFolder = defaultStateFolder());

  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  /// The copy stays. Call clear() before if the user has saved or discarded the changes.
  ~Recovery() = default;

  /// Tells of a change, an undo, a save, or another document. Never throws or writes; removes the
  /// copy if nothing is unsaved any more.
  void changed(Time now = Clock::now()) noexcept;

  /// When pause() will write; nothing if there is nothing to write.
  std::optional<Time> dueTime() const noexcept;

  /// Tells that the program waits for the user: writes the copy if it is due. Never throws;
  /// problem() tells why a copy could not be written.
  void pause(Time now = Clock::now()) noexcept;

  /// Writes the copy now if anything is unsaved: the program is about to end, and cannot ask. Never
  /// throws.
  /// @return whether all unsaved work is on the disk
  bool keep(Time now = Clock::now()) noexcept;

  /// Removes the copy: the user has saved or discarded the changes. Never throws.
  void clear() noexcept;

  /// Takes over what the user recovers. Call it after Editor::replaceWithUnsaved(). When it throws,
  /// the work can be found again.
  void adopt(UnsavedWork work);

  /// Why the copy could not be written; empty if it could. Asking again gives nothing until it
  /// happens for another reason.
  std::string takeProblem();

private:
  void write(Time now) noexcept;
  void writeSomewhere();
  std::filesystem::path modelFor(const RecoveryFile& file) const;

  Editor& m_editor;
  std::filesystem::path m_stateFolder;
  std::optional<RecoveryFile> m_file;
  std::filesystem::path m_document;  ///< the file of the document that m_file belongs to
  std::optional<Time> m_firstChange; ///< that is not written
  Time m_lastChange;
  std::optional<Time> m_nextWrite; ///< not earlier
  std::string m_problem;
  std::string m_toldProblem;
};

}
