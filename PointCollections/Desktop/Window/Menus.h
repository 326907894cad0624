// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Window/LiveTexts.h"
#include "PointCollections/Desktop/Window/MainWindow.h"

#include <QtCore/QObject>

class QActionGroup;
class QMenu;

namespace Tarvik::PointCollections {

/// The menus and the tool bar of a window, in the language of the program.
class Menus : public QObject {
  Q_OBJECT

public:
  /// @param window  gets the menus, and owns this object
  explicit Menus(MainWindow& window);
  ~Menus() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void addFileMenu();
  void addEditMenu();
  void addGroupsMenu();
  void addViewMenu();
  void addLanguageMenu();
  QMenu* addMenu();

  MainWindow& m_window;
  LiveTexts m_texts;
};

}
