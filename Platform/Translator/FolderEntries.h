// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Tarvik {

/// The names of what is in a folder, in any order, in UTF-8; nothing if it cannot be read.
std::vector<std::string> entriesOf(const std::filesystem::path& folder);

}
