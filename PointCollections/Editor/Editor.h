// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Files/Files.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace Tarvik::PointCollections {

/// A document that was read from a file, for an Editor.
struct OpenedDocument {
  std::shared_ptr<PointDocument> document; ///< never null
  std::string title;                       ///< usually the name of the file, without its folders
  std::filesystem::path projectFile = {};  ///< empty unless the document comes from a project
  std::uint64_t projectSize = 0;           ///< of the project file, in bytes
  std::size_t projectHash = 0;             ///< of the bytes of the project file
};

/// Reads and checks a document: a project if the name of the file ends in .tkpc, otherwise points.
/// @throws UserError if the file cannot be read or is not valid
OpenedDocument openDocument(Files& files, const std::filesystem::path& file);

/// The open document, its history, and the project file that it is saved in.
///
/// Change the document only by commands that the history executes. Opening another document starts
/// a new history. The clean mark of the history is the state that was opened or saved last.
class Editor {
public:
  /// How many steps can be undone. Each keeps two lists of groups, so memory sets a limit.
  static constexpr std::size_t historyLimit = 1000;

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

  const std::string& title() const { return m_opened.title; }

  /// The file that the document was opened from or saved in last; empty if there is none.
  const std::filesystem::path& projectFile() const { return m_opened.projectFile; }

  CommandHistory& history() { return m_history; }
  const CommandHistory& history() const { return m_history; }
  Files& files() const { return *m_files; }

  bool hasUnsavedChanges() const { return !m_history.isClean(); }

  /// Replaces the document. Unsaved changes are lost.
  void replaceDocument(OpenedDocument opened);

  /// What save() would overwrite. Ask before you save.
  /// @throws UserError if the document's own file cannot be read
  OverwriteRisk overwriteRisk(const std::filesystem::path& file) const;

  /// Saves the document as a project. The file becomes the document's own.
  /// @throws UserError if that fails; nothing has changed then, as Files::write() describes
  void save(const std::filesystem::path& file);

private:
  bool hasFileChanged() const;

  OpenedDocument m_opened;
  std::shared_ptr<Files> m_files;
  CommandHistory m_history = CommandHistory(historyLimit);
};

/// The open document in a few words: "cities.tkpc: 418 elements with 418 points in 3 groups".
std::string summaryOf(const Editor& editor);

}
