// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Points/PointsView.h"
#include "PointCollections/Desktop/Window/FileCommands.h"
#include "PointCollections/Desktop/Window/GroupsPanel.h"
#include "PointCollections/Desktop/Window/Questions.h"
#include "PointCollections/Desktop/Workspace/ElementColours.h"
#include "PointCollections/Desktop/Workspace/Workspace.h"

#include <QtCore/QTimer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>

#include <memory>

class QDockWidget;
class QSplitter;

namespace Tarvik {
class HistoryView;
}

namespace Tarvik::PointCollections {

/// The window of the program: groups, points, history and menus for one document.
class MainWindow : public QMainWindow {
  Q_OBJECT

public:
  /// A window with an empty document.
  /// @param files      where documents are saved; not null
  /// @param questions  how the user is asked; by dialogs if null
  explicit MainWindow(std::shared_ptr<Files> files = diskFiles(),
                      std::unique_ptr<Questions> questions = nullptr);
  ~MainWindow() override;

  Workspace& workspace() { return m_workspace; }
  FileCommands& fileCommands() { return *m_fileCommands; }
  GroupsPanel& groups() { return *m_groups; }
  PointsView& points() { return *m_points; }

  /// Moves the border between the groups and the points.
  /// @param pixels  negative for narrower groups. Both sides keep their least width
  void widenGroups(int pixels);

  /// The program is about to end, and the user cannot be asked: keeps the unsaved changes for the
  /// next start. Until the user goes on, closing the window asks nothing.
  void prepareForEnd();

protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  void addHistoryPanel();
  void arrange();
  void connectParts();
  void mirrorPanels();

  void retranslate();
  void tellLanguageFault();
  void rememberExpandedGroups();
  void rememberWindow() const;
  void showChange();
  void showDocument();
  void showTitle();
  void showStatistics();
  void showFailure(const QString& message);
  void showSelectionInTree();
  void showSelectionInSpace();

  Workspace m_workspace;
  std::unique_ptr<Questions> m_questions;
  FileCommands* m_fileCommands;
  std::unique_ptr<ElementColours> m_colours;
  GroupsPanel* m_groups;
  PointsView* m_points;
  QLabel* m_statistics;
  QSplitter* m_splitter = nullptr;
  QDockWidget* m_historyPanel = nullptr;
  HistoryView* m_history = nullptr;
  QTimer m_languageIsNew;    ///< what is wrong with it is told when the window is on the screen
  bool m_isMirrored = false; ///< whether panels are where they are from right to left
  bool m_isEnding = false;
};

}
