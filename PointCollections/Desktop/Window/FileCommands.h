// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Window/Questions.h"
#include "PointCollections/Desktop/Window/RecentFiles.h"
#include "PointCollections/Desktop/Workspace/Workspace.h"

#include <QtCore/QObject>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Tarvik::PointCollections {

/// What the user does with files: opening, saving, exporting. Asks before anything is lost, and
/// tells what goes wrong. Nothing here throws.
class FileCommands : public QObject {
  Q_OBJECT

public:
  /// @param workspace  must outlive this object
  /// @param questions  must outlive this object
  /// @param window     shows progress; also the owner of this object
  FileCommands(Workspace& workspace, Questions& questions, QWidget& window);

  RecentFiles& recentFiles() { return m_recentFiles; }

  /// Asks for a file and opens it.
  void open();

  /// Opens a file, after the question about unsaved changes.
  /// @return whether it is open now
  bool openFile(const std::filesystem::path& file);

  /// Opens a file of the list of recent files. If it is gone, tells so and forgets it.
  void openRecent(const std::filesystem::path& file);

  /// Saves in the document's file, or asks for one if it has none.
  /// @return whether it is saved
  bool save();

  /// Asks for a file and saves in it.
  bool saveAs();

  /// Whether the document may be given up: its changes are saved, or the user does not want them.
  bool mayDiscard();

  /// Asks for a file, and writes groups and members as a table.
  void exportGroups();

  /// Asks for a file, and writes a picture as PNG.
  /// @param makePicture  called when the user has chosen a file
  void exportPicture(const std::function<QImage()>& makePicture);

private:
  std::optional<OpenedDocument> read(const std::filesystem::path& file);
  UnknownTable unknownTable(const std::filesystem::path& file, const UnknownColumns& unknown) const;
  std::optional<OpenedDocument> readWithProgress(const std::filesystem::path& file,
                                                 const std::function<OpenedDocument()>& open);
  void show(OpenedDocument opened);
  void offerUnsavedWork(const std::filesystem::path& file);
  bool saveIn(const std::filesystem::path& file, bool mayOverwrite);
  std::optional<Editor::SaveResult> saveWithProgress(const std::filesystem::path& file,
                                                     bool mayOverwrite);
  bool write(const std::filesystem::path& file, std::vector<std::byte> bytes);

  void tellException(const QString& what);

  template <class Task>
  bool attempt(const QString& whatFails, Task task);

  Workspace& m_workspace;
  Questions& m_questions;
  QWidget& m_window;
  RecentFiles m_recentFiles;
};

}
