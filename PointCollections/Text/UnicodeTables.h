// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// What Unicode says about characters. The script make-unicode-tables writes the source.
namespace Tarvik::PointCollections::UnicodeTables {

/// Three characters for each one that has a canonical decomposition, sorted: the character itself,
/// and the one or two that it stands for. If it is one, the third is NUL. These may have
/// decompositions themselves.
extern const std::u32string_view decompositions;

/// Three characters for each run of combining characters with the same class, sorted: the first
/// one, the last one, and the class as a number.
extern const std::u32string_view combiningClasses;

}
