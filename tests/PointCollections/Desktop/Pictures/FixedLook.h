// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QPalette>

namespace Tarvik::PointCollections {

/// While it exists, widgets look the same for each user: style, fonts and colours do not depend on
/// settings.
class FixedLook {
public:
  enum class Colours { Light, Dark };

  /// @param language  whose letters the fonts must have
  FixedLook(Colours colours, const QString& language);
  FixedLook(const FixedLook&) = delete;
  FixedLook& operator=(const FixedLook&) = delete;
  ~FixedLook();

private:
  QString m_style;
  QFont m_font;
  QPalette m_palette;
};

}
