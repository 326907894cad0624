// SPDX-License-Identifier: MIT
#include "PointCollections/Text/TextInNeed.h"

#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {

TextInNeed::TextInNeed(const char* english) noexcept : m_english(english)
{
  try {
    m_translation = translated(english);
  } catch (...) {
    m_translation.clear();
  }
}

}
