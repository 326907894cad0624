// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace Tarvik {

/// The folder with the file of this library, after links are followed; empty if the system does not
/// tell.
std::filesystem::path libraryFolder();

}
