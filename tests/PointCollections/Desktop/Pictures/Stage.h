// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Pictures/FixedLook.h"
#include "PointCollections/Desktop/Window/MainWindow.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// The window of the program with the sample, in which a scene is played.
class Stage {
public:
  /// @param language  of the texts; there is a catalogue for it, or it is English
  explicit Stage(FixedLook::Colours colours, const QString& language = QStringLiteral("en"));
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;
  ~Stage();

  MainWindow& window() { return *m_window; }

  /// The ids of elements.
  /// @param names  separated by commas; all exist
  std::vector<GUIdentifier> elements(const QString& names) const;

  /// Makes groups of the continents, one step for each.
  void createContinents();

  /// Expands a group, and shows it at the top of the tree.
  void expand(const std::string& group);

  /// Selects elements, among the points and in the tree.
  /// @param names  separated by commas; all exist
  void select(const QString& names);

  /// Turns the points by presses of the arrow keys; negative numbers turn the other way.
  void turn(int toTheRight, int downwards);

  /// Drags what is selected over a group, and draws the window with the pointer.
  QImage drawDragOnto(const std::string& group);

  /// Draws the window.
  QImage draw();

private:
  std::uint32_t numberOf(const QString& element) const;
  QModelIndex rowOf(const std::string& group);

  QTemporaryDir m_settings;
  FixedLook m_look;
  std::unique_ptr<MainWindow> m_window;
};

}
