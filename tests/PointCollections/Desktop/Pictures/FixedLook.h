// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QLocale>
#include <QtGui/QFont>
#include <QtGui/QPalette>

namespace Tarvik::PointCollections {

/// While it exists, widgets look the same for each user: style, font, colours and the format of
/// numbers do not depend on settings.
class FixedLook {
public:
  enum class Colours { Light, Dark };

  explicit FixedLook(Colours colours, const QLocale& locale = QLocale::c());
  FixedLook(const FixedLook&) = delete;
  FixedLook& operator=(const FixedLook&) = delete;
  ~FixedLook();

private:
  QString m_style;
  QFont m_font;
  QPalette m_palette;
  QLocale m_locale;
};

}
