// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Pictures/FixedLook.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <array>
#include <stdexcept>
#include <string>

namespace Tarvik::PointCollections {
namespace {

/// A font, and where Debian has it.
struct NeededFont {
  const char* family;
  const char* package;
};

constexpr std::array<NeededFont, 2> neededFonts = {{
    {"DejaVu Sans", "fonts-dejavu-core"},
    {"VL Gothic", "fonts-vlgothic"}, // for Japanese, which the other one has not
}};
constexpr int heightOfFont = 13; ///< in pixels, so that the resolution does not matter

QFont fixedFont()
{
  QStringList families;
  for (const auto& [family, package] : neededFonts) {
    families << QString::fromLatin1(family);
    if (!QFontDatabase::hasFamily(families.constLast()))
      throw std::runtime_error(std::string("The pictures need the font ") + family +
                               ", which is not installed. On Debian it is in the package " +
                               package + ".");
  }
  QFont font(families);
  font.setPixelSize(heightOfFont);
  font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  font.setHintingPreference(QFont::PreferNoHinting);
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

FixedLook::FixedLook(Colours colours)
    : m_style(QApplication::style()->objectName()),
      m_font(QApplication::font()),
      m_palette(QApplication::palette())
{
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setFont(fixedFont());
  QApplication::setPalette(colours == Colours::Light ? lightColours() : darkColours());
}

FixedLook::~FixedLook()
{
  QApplication::setPalette(m_palette);
  QApplication::setFont(m_font);
  QApplication::setStyle(m_style);
}

}
