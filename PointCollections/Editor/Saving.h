// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Editor/Editor.h"
#include "PointCollections/Files/Cancellation.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// A save on its way to the disk: the bytes of a document, and what is known about its file. It has
/// nothing in common with its editor, so another thread may write it while the user goes on.
///
/// Editor::beginSave() makes it, and Editor::finishSave() takes note of it.
class Saving {
public:
  /// What an editor knows when it begins to save.
  /// @param opened           the document and the file that it comes from
  /// @param saved            what that is after the save
  /// @param bytes            of the project
  /// @param mayOverwrite     whether to overwrite what the user has not seen
  /// @param stateOfDocument  to find out whether the document has been changed since
  Saving(std::shared_ptr<Files> files,
         OpenedDocument opened,
         OpenedDocument saved,
         std::vector<std::byte> bytes,
         bool mayOverwrite,
         Editor::State stateOfDocument)
      : m_files(std::move(files)),
        m_opened(std::move(opened)),
        m_saved(std::move(saved)),
        m_bytes(std::move(bytes)),
        m_mayOverwrite(mayOverwrite),
        m_stateOfDocument(stateOfDocument)
  {}

  /// What saving in a file would overwrite, see Editor::overwriteRisk().
  static Editor::OverwriteRisk
  overwriteRisk(Files& files, const OpenedDocument& opened, const std::filesystem::path& file);

  /// Writes the file. Call it once, on any thread.
  /// @return nothing if it was cancelled: the file is as it was then
  /// @throws UserError or std::bad_alloc if that fails; the file is as it was then
  std::optional<Editor::SaveResult> write(Cancellation& cancellation);

  const OpenedDocument& saved() const { return m_saved; }
  Editor::State stateOfDocument() const { return m_stateOfDocument; }

private:
  std::shared_ptr<Files> m_files;
  OpenedDocument m_opened;
  OpenedDocument m_saved;
  std::vector<std::byte> m_bytes;
  bool m_mayOverwrite;
  Editor::State m_stateOfDocument;
};

}
