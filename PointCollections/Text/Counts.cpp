// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Counts.h"

#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {

std::string countOfElements(std::size_t number)
{
  return translatedCount(number, "{} element", "{} elements");
}

std::string countOfGroups(std::size_t number)
{
  return translatedCount(number, "{} group", "{} groups");
}

std::string countOfPoints(std::size_t number)
{
  return translatedCount(number, "{} point", "{} points");
}

}
