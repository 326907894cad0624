// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Editor/Editor.h"
#include "PointCollections/Editor/Saving.h"
#include "PointCollections/Recovery/Recovery.h"
#include "QtModels/Editing/GroupRequest.h"
#include "QtModels/History/History.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

#include <filesystem>
#include <memory>

namespace Tarvik::PointCollections {

/// The document of a window, with its history and its file: an Editor with the signals that widgets
/// need. A copy of unsaved work is kept on the disk, for the case of a crash.
class Workspace : public QObject {
  Q_OBJECT

public:
  /// Begins with an empty document.
  /// @param files  where documents are read and saved; not null
  explicit Workspace(std::shared_ptr<Files> files = diskFiles(), QObject* parent = nullptr);
  ~Workspace() override;

  Editor& editor() { return m_editor; }
  const Editor& editor() const { return m_editor; }

  /// The steps that can be undone.
  History& history() { return m_history; }

  /// What executes the changes that the user asks for. Valid as long as the workspace.
  GroupRequestHandler<GUIdentifier> requestHandler();

  /// Shows another document. Unsaved changes are lost.
  void replaceDocument(OpenedDocument opened);

  /// Shows unsaved work of an earlier run, which is unsaved still.
  void recover(UnsavedWork work);

  /// The user has saved the changes or does not want them: removes the copy on the disk.
  void forgetUnsavedWork() { m_recovery.clear(); }

  /// The program is about to end without asking: keeps the unsaved changes for its next start.
  void keepUnsavedWork() { m_recovery.keep(); }

  /// Where documents are read and saved. Other threads may use it, too.
  const std::shared_ptr<Files>& files() const { return m_files; }

  /// Saves the document at once, see Editor::save() and Editor::saveIfSafe().
  Editor::SaveResult saveNow(const std::filesystem::path& file, bool mayOverwrite);

  /// Takes the content of the document for another thread to save, see Editor::beginSave().
  std::unique_ptr<Saving> beginSave(const std::filesystem::path& file, bool mayOverwrite);

  /// Takes note of what another thread has saved, see Editor::beginSave().
  void finishSave(const Saving& saving);

  /// The name of the document for the title of a window.
  QString title() const;

  /// How many elements, points and groups there are, in a few words.
  QString statistics() const;

Q_SIGNALS:
  /// There will be another document soon.
  void aboutToReplaceDocument();

  /// There is another document. The old one may already be gone.
  void documentReplaced();

  /// The document will be saved now, with what belongs to it.
  void aboutToSave();

  /// The document has another name.
  void titleChanged();

private:
  void tellDocument();
  void noteChange();
  void writeRecovery();

  std::shared_ptr<Files> m_files;
  Editor m_editor;
  History m_history;
  Recovery m_recovery;
  QTimer m_recoveryIsDue;
};

}
