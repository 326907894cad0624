// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <filesystem>

class QMenu;

namespace Tarvik::PointCollections {

/// The files that the user opened or saved last. The settings of the program keep them, so all
/// objects share them, also with other runs.
class RecentFiles : public QObject {
  Q_OBJECT

public:
  /// How many files are remembered.
  static constexpr qsizetype greatestCount = 10;

  explicit RecentFiles(QObject* parent = nullptr);

  /// The latest first.
  static QStringList names();

  static void add(const std::filesystem::path& file);

  /// Forgets a file, for instance because it is not there any more.
  static void remove(const std::filesystem::path& file);

  /// Fills the menu whenever it is about to be shown.
  void fill(QMenu& menu);

Q_SIGNALS:
  /// The user wants to open one of the files.
  void chosen(const QString& name);
};

}
