// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Pictures/FixedLook.h"

#include <QtGui/QFontInfo>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <stdexcept>

namespace Tarvik::PointCollections {
namespace {

const auto family = QStringLiteral("DejaVu Sans");
constexpr int heightOfFont = 13; ///< in pixels, so that the resolution does not matter

QFont fixedFont()
{
  QFont font(family);
  font.setPixelSize(heightOfFont);
  font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  font.setHintingPreference(QFont::PreferNoHinting);
  if (QFontInfo(font).family() != family)
    throw std::runtime_error("The pictures need the font DejaVu Sans, which is not installed. On "
                             "Debian it is in the package fonts-dejavu-core.");
  return font;
}

QPalette lightColours()
{
  QPalette colours(QColor(0xef, 0xef, 0xef));
  colours.setColor(QPalette::Base, Qt::white);
  colours.setColor(QPalette::AlternateBase, QColor(0xf7, 0xf7, 0xf7));
  colours.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
  colours.setColor(QPalette::HighlightedText, Qt::white);
  return colours;
}

QPalette darkColours()
{
  QPalette colours(QColor(0x35, 0x35, 0x35));
  colours.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
  colours.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2b, 0x2b));
  colours.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
  colours.setColor(QPalette::HighlightedText, Qt::white);
  return colours;
}

}

FixedLook::FixedLook(Colours colours, const QLocale& locale)
    : m_style(QApplication::style()->objectName()),
      m_font(QApplication::font()),
      m_palette(QApplication::palette())
{
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setFont(fixedFont());
  QApplication::setPalette(colours == Colours::Light ? lightColours() : darkColours());
  QLocale::setDefault(locale);
}

FixedLook::~FixedLook()
{
  QLocale::setDefault(m_locale);
  QApplication::setPalette(m_palette);
  QApplication::setFont(m_font);
  QApplication::setStyle(m_style);
}

}
