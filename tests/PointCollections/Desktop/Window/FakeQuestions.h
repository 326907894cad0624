// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Window/Questions.h"

#include <QtCore/QStringList>

namespace Tarvik::PointCollections {

/// A user whose answers are set beforehand, and who notes what is told.
struct FakeQuestions : Questions {
  std::optional<std::filesystem::path> open;
  std::optional<std::filesystem::path> write;
  std::filesystem::path suggested;
  UnsavedChanges unsaved = UnsavedChanges::Cancel;
  FoundWork found = FoundWork::Later;
  bool overwrites = false;
  std::optional<PointColumns> columns; ///< of the next table
  QStringList told;                    ///< also the questions

  std::optional<std::filesystem::path> fileToOpen() override { return open; }

  std::optional<std::filesystem::path> fileToWrite(FileKind,
                                                   const std::filesystem::path& suggestion) override
  {
    suggested = suggestion;
    return write;
  }

  std::optional<UnknownTable::Choice> chooseColumns(const UnknownTable& table) override
  {
    told << "columns: " + table.why;
    if (!columns)
      return std::nullopt;
    return UnknownTable::Choice{table.header, *columns};
  }

  UnsavedChanges aboutUnsavedChanges(const QString& title) override
  {
    told << "unsaved: " + title;
    return unsaved;
  }

  FoundWork aboutFoundWork(const QString&, const QString& summary) override
  {
    told << "found: " + summary;
    return found;
  }

  bool mayOverwrite(const std::filesystem::path&, Editor::OverwriteRisk) override
  {
    told << "overwrite";
    return overwrites;
  }

  void tellFailure(const QString& what, const QString& why) override { told << what + " " + why; }
  void tellWarning(const QString& text) override { told << text; }
};

}
