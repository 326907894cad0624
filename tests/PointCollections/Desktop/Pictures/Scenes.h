// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <array>

namespace Tarvik::PointCollections {

/// The scenes of the program that the documents show. They are the same wherever they are drawn
/// with the same version of Qt.
class Scenes {
public:
  /// The names of the pictures, without the extension.
  static constexpr std::array names = {"desktop",       "desktop-drag",   "desktop-history",
                                       "desktop-dark",  "desktop-german", "desktop-japanese",
                                       "desktop-arabic"};

  /// Plays a scene in a window of the program, and draws the window.
  /// @param name  one of `names`
  static QImage draw(const QString& name);

  Scenes() = delete;
};

}
