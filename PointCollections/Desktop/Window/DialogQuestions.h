// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Window/Questions.h"

#include <QtWidgets/QWidget>

namespace Tarvik::PointCollections {

/// Asks and tells by dialogs of a window.
class DialogQuestions : public Questions {
public:
  /// @param window  must outlive this object
  explicit DialogQuestions(QWidget& window) : m_window(window) {}

  std::optional<std::filesystem::path> fileToOpen() override;
  std::optional<std::filesystem::path>
  fileToWrite(FileKind kind, const std::filesystem::path& suggestion) override;
  std::optional<UnknownTable::Choice> chooseColumns(const UnknownTable& table) override;
  UnsavedChanges aboutUnsavedChanges(const QString& title) override;
  FoundWork aboutFoundWork(const QString& title, const QString& summary) override;
  bool mayOverwrite(const std::filesystem::path& file, Editor::OverwriteRisk risk) override;
  void tellFailure(const QString& what, const QString& why) override;
  void tellWarning(const QString& text) override;

private:
  QWidget& m_window;
};

}
