// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Text/LocalCounts.h"

#include "PointCollections/Text/Translated.h"

#include <QtCore/QLocale>

#include <string>

namespace Tarvik::PointCollections {
namespace {

/// @param one    the text for the number 1 in English, which catalogues have
/// @param other  for other numbers in English
QString localCount(std::size_t number, fmt::string_view one, fmt::string_view other)
{
  const auto written = QLocale().toString(static_cast<qulonglong>(number)).toStdString();
  const auto text = TranslatedTexts::formFor(number, one, other);
  return QString::fromStdString(
      TranslatedTexts::filled(text, number == 1 ? one : other, fmt::make_format_args(written)));
}

}

QString localCountOfElements(std::size_t number)
{
  return localCount(number, "{} element", "{} elements");
}

QString localCountOfGroups(std::size_t number)
{
  return localCount(number, "{} group", "{} groups");
}

QString localCountOfPoints(std::size_t number)
{
  return localCount(number, "{} point", "{} points");
}

}
