// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Editor/GroupEdit.h"
#include "PointCollections/Editor/MemoryReserve.h"
#include "PointCollections/Files/Files.h"
#include "PointCollections/Input/PointColumns.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// A document that was read from a file, for an Editor.
struct OpenedDocument {
  std::shared_ptr<PointDocument> document; ///< never null
  std::string title;                       ///< usually the name of the file, without its folders
  std::filesystem::path projectFile = {};  ///< empty unless the document comes from a project
  std::uint64_t fileSize = 0;              ///< of the file that it was read from, in bytes
  std::size_t fileHash = 0;                ///< of the bytes of that file
  std::filesystem::path file = {}; ///< the file that it was read from or saved in last; empty
                                   ///< for a pipe or the like, which cannot be read again
  std::vector<std::string> warnings = {}; ///< for the user: "name:line: ..."; usually none
};

/// Reads and checks a document: a project if the name of the file ends in .tkpc, otherwise points.
/// @throws UnknownColumns if the header of a file of points does not tell which columns are meant
/// @throws UserError if the file cannot be read or is not valid
OpenedDocument openDocument(Files& files, const std::filesystem::path& file);

/// Reads and checks a file of points with columns that the user has chosen.
/// @param header, columns  as for parsePointFile()
/// @throws UserError if the file cannot be read or is not valid
OpenedDocument openPoints(Files& files,
                          const std::filesystem::path& file,
                          const TableHeader& header,
                          const PointColumns& columns);

/// Checks points that were not read from a file.
/// @param title  what the document and error messages call the text
/// @throws UserError as openDocument() does
OpenedDocument openPoints(std::string_view text, const std::string& title);

class Saving;

/// Whether the file of the document still has the bytes that were read or written.
/// @throws UserError if it cannot be read
bool isUnchanged(Files& files, const OpenedDocument& opened);

/// The open document, its history, and the project file that it is saved in.
///
/// Change the document only through execute() and the history. Opening another document starts a
/// new history. The clean mark of the history is the state that was opened or saved last.
///
/// Memory: a step keeps what it changed. The history forgets the oldest steps when they take more
/// than its budget, and half of them when a change fails because there is not enough memory: the
/// change is then tried once more. Memory is held in reserve so that the document can be saved even
/// then.
class Editor {
public:
  /// How many steps can be undone at most.
  static constexpr std::size_t historyLimit = 1000;

  /// How many bytes all steps take at most, unless setHistoryBudget() says otherwise.
  static constexpr std::size_t historyBudget = std::size_t(256) << 20U;

  /// What saving would overwrite that the user has not seen.
  enum class OverwriteRisk {
    None,
    OtherFile,   ///< a file that the document was neither opened from nor saved in
    OtherChanges ///< what another program has written to the document's file
  };

  /// @param opened  the document to start with
  /// @param files   where documents are read and saved; not null
  explicit Editor(OpenedDocument opened, std::shared_ptr<Files> files = diskFiles());

  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;
  ~Editor() = default;

  /// Never null. Commands share it, so it may live on after replaceDocument().
  const std::shared_ptr<PointDocument>& document() const { return m_opened.document; }

  /// The document with what is known about its file.
  const OpenedDocument& opened() const { return m_opened; }

  const std::string& title() const { return m_opened.title; }

  /// The file that the document was opened from or saved in last; empty if there is none.
  const std::filesystem::path& projectFile() const { return m_opened.projectFile; }

  CommandHistory& history() { return m_history; }
  const CommandHistory& history() const { return m_history; }
  Files& files() const { return *m_files; }

  /// Makes a change that can be undone.
  /// @return whether anything has changed; if not, there is no new step, and nothing is unsaved
  /// @throws UserError if there would not be enough memory to save it, and whatever the command
  ///         throws; nothing has changed then
  bool execute(EditRequest request);

  /// Changes how many bytes all steps take at most. The last step is always kept.
  void setHistoryBudget(std::size_t bytes);

  /// How many of the oldest steps of this document have been forgotten.
  std::size_t forgottenSteps() const { return m_forgottenSteps; }

  /// How many steps are in effect, with those that have been forgotten.
  std::size_t stepsInEffect() const { return m_forgottenSteps + m_history.position(); }

  /// How often the document has been changed by execute(), saved or replaced. Undoing and redoing
  /// do not count: stepsInEffect() tells them.
  std::size_t changes() const { return m_changes; }

  /// How many steps have been forgotten for want of memory, and the user has not been told.
  std::size_t stepsForgottenInNeed() const { return m_forgottenInNeed; }

  /// The same; the user has been told then.
  std::size_t takeStepsForgottenInNeed() { return std::exchange(m_forgottenInNeed, 0); }

  bool hasUnsavedChanges() const { return !m_history.isClean(); }

  /// Replaces the document. Unsaved changes are lost.
  void replaceDocument(OpenedDocument opened);

  /// Replaces the document with one that has changes that are not in its file.
  void replaceWithUnsaved(OpenedDocument opened);

  /// What save() would overwrite. Another program may save at any time: saveIfSafe() asks and saves
  /// in one step.
  /// @throws UserError if the document's own file cannot be read, or it cannot be found out whether
  ///         there is a file
  OverwriteRisk overwriteRisk(const std::filesystem::path& file);

  /// What has been done.
  struct SaveResult {
    OverwriteRisk risk = OverwriteRisk::None; ///< if any, nothing has been saved
    std::string warning = {};                 ///< for the user: a sentence; usually empty
  };

  /// Saves the document as a project, whatever that overwrites. The file becomes the document's
  /// own. When there is not enough memory, uses the reserve, and then forgets steps of the history.
  /// @return without risk
  /// @throws UserError if that fails, or another program saves in the file at this moment; nothing
  ///         has changed then
  SaveResult save(const std::filesystem::path& file);

  /// As save(), unless that would overwrite what the user has not seen. Meanwhile no other program
  /// of this kind can save in the file.
  SaveResult saveIfSafe(const std::filesystem::path& file);

  /// Two that are equal stand for the same content of the same document.
  using State = std::pair<std::size_t, std::size_t>;

  State state() const { return {m_changes, stepsInEffect()}; }

  /// The first step of a save that another thread writes: takes the content of the document as it
  /// is now. Saving::write() is the second step, and finishSave() the last one.
  /// @param mayOverwrite  whether to save whatever that overwrites, as save() does; otherwise as
  ///                      saveIfSafe()
  /// @throws UserError if there is not enough memory, or the document cannot be saved
  std::unique_ptr<Saving> beginSave(const std::filesystem::path& file, bool mayOverwrite);

  /// Takes note of a save that has been written. The document is unsaved still if it has been
  /// changed since beginSave().
  void finishSave(const Saving& saving);

private:
  std::unique_ptr<FileLock> lockForSaving(const std::filesystem::path& file);
  SaveResult saveLocked(const std::filesystem::path& file);
  std::string saveOnce(const std::filesystem::path& file);
  OpenedDocument openedIn(const std::filesystem::path& file,
                          std::span<const std::byte> bytes) const;
  bool forgetSteps();
  bool holdReserve();

  template <class Action>
  void withAllMemory(Action action);

  OpenedDocument m_opened;
  std::shared_ptr<Files> m_files;
  CommandHistory m_history = CommandHistory(historyLimit);
  std::size_t m_forgottenSteps = 0;
  std::size_t m_forgottenInNeed = 0;
  std::size_t m_changes = 0;
  std::size_t m_sizeOfElements; ///< in the project, in bytes
  /// Enough to save the document. Steps share it.
  std::shared_ptr<MemoryReserve> m_reserve = std::make_shared<MemoryReserve>();
};

/// A document's content in a few words: "418 elements with 418 points in 3 groups".
std::string contentOf(PointDocument& document);

/// The open document in a few words: "cities.tkpc: 418 elements with 418 points in 3 groups".
std::string summaryOf(const Editor& editor);

}
