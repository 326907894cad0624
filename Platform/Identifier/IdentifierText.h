// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/IdentifierBits.h"

#include <optional>
#include <string>
#include <string_view>

/// Writes and reads identifiers as text. Internal to this library.
namespace Tarvik::IdentifierText {

/// 32 hexadecimal digits, lower case, most significant first.
std::string toDigits(const IdentifierBits& bits);

/// Reads 32 hexadecimal digits, lower or upper case; nothing for any other text.
std::optional<IdentifierBits> fromDigits(std::string_view text);

}
