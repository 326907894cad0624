// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/GroupColours.h"

#include <cmath>

namespace Tarvik::PointCollections {

QColor GroupColours::of(const Identifier& groupId)
{
  const auto number = m_numbers.try_emplace(groupId, m_numbers.size()).first->second;
  // Steps of the golden ratio spread hues evenly, however many there are.
  const auto hue = std::fmod(0.58 + 0.618034 * static_cast<double>(number), 1.0);
  const auto lightness = number % 2 == 0 ? 0.52 : 0.60;
  return QColor::fromHslF(static_cast<float>(hue), 0.72F, static_cast<float>(lightness));
}

}
