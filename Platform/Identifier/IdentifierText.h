// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/IdentifierBits.h"

#include <optional>
#include <string>
#include <string_view>

/// How the identifiers of this library are written and read. Not for others.
namespace Tarvik::IdentifierText {

/// 32 hexadecimal digits, lower case, the highest first.
std::string toDigits(const IdentifierBits& bits);

/// Reads 32 hexadecimal digits, lower or upper case; nothing when the text is anything else.
std::optional<IdentifierBits> fromDigits(std::string_view text);

}
