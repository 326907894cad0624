// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Import/UnknownTable.h"
#include "PointCollections/Editor/Editor.h"

#include <QtCore/QString>

#include <filesystem>
#include <optional>

namespace Tarvik::PointCollections {

/// What the program asks and tells the user about files: by dialogs, or by something else in tests.
class Questions {
public:
  /// What to do with unsaved changes.
  enum class UnsavedChanges { Save, Discard, Cancel };

  /// What to do with unsaved work of an earlier run. What is left for later can be found again.
  enum class FoundWork { Recover, Discard, Later };

  /// What a file is to contain.
  enum class FileKind { Project, Table, Picture };

  Questions() = default;
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;
  virtual ~Questions() = default;

  /// Which file to open; nothing if the user does not want to.
  virtual std::optional<std::filesystem::path> fileToOpen() = 0;

  /// Where to write; nothing if the user does not want to. The user has agreed to overwrite the
  /// file if it exists.
  /// @param suggestion  may be empty
  virtual std::optional<std::filesystem::path>
  fileToWrite(FileKind kind, const std::filesystem::path& suggestion) = 0;

  /// What a table has in its columns; nothing if the user does not want to open it.
  virtual std::optional<UnknownTable::Choice> chooseColumns(const UnknownTable& table) = 0;

  virtual UnsavedChanges aboutUnsavedChanges(const QString& title) = 0;

  /// @param summary  what the work has, and when it was written
  virtual FoundWork aboutFoundWork(const QString& title, const QString& summary) = 0;

  /// Whether to overwrite a file that another program has changed or made.
  virtual bool mayOverwrite(const std::filesystem::path& file, Editor::OverwriteRisk risk) = 0;

  /// @param what  what has failed
  /// @param why   the reason, with the file and the place in it
  virtual void tellFailure(const QString& what, const QString& why) = 0;

  /// Something that the user should know.
  virtual void tellWarning(const QString& text) = 0;
};

}
