// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Pictures/FixedLook.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <stdexcept>
#include <string>

namespace Tarvik::PointCollections {
namespace {

constexpr int heightOfFont = 13; ///< in pixels, so that the resolution does not matter

/// @param package  in which Debian has the font
/// @return the family
QString installedFamily(const char* family, const char* package)
{
  auto name = QString::fromLatin1(family);
  if (!QFontDatabase::hasFamily(name))
    throw std::runtime_error(std::string("The pictures need the font ") + family +
                             ", which is not installed. On Debian it is in the package " + package +
                             ".");
  return name;
}

/// No other fonts are asked for letters: which ones there are depends on the machine.
QFont fixedFont(const QString& language)
{
  QFont font(installedFamily("DejaVu Sans", "fonts-dejavu-core"));
  auto strategy = QFont::PreferAntialias | QFont::NoSubpixelAntialias;
  if (language == u"ja")
    font.setFamilies({font.family(), installedFamily("VL Gothic", "fonts-vlgothic")});
  else
    strategy |= QFont::NoFontMerging;
  font.setPixelSize(heightOfFont);
  font.setStyleStrategy(QFont::StyleStrategy(strategy));
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

FixedLook::FixedLook(Colours colours, const QString& language)
    : m_style(QApplication::style()->objectName()),
      m_font(QApplication::font()),
      m_palette(QApplication::palette())
{
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setFont(fixedFont(language));
  QApplication::setPalette(colours == Colours::Light ? lightColours() : darkColours());
}

FixedLook::~FixedLook()
{
  QApplication::setPalette(m_palette);
  QApplication::setFont(m_font);
  QApplication::setStyle(m_style);
}

}
