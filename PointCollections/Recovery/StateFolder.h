// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace Tarvik::PointCollections {

/// The folder in which programs for point collections keep what is not for the user's eyes. It need
/// not exist. Empty if the system does not tell one. Each operating system has its own source file.
std::filesystem::path defaultStateFolder();

}
