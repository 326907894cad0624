// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Words.h"

#include <string>

namespace Tarvik::PointCollections {

/// A word as the user typed it, for messages: without control characters, and not too long.
inline std::string shownWord(const Word& word)
{
  return printable(abbreviated(asTyped(word), 60));
}

}
