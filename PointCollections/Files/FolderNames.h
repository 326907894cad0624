// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <vector>

namespace Tarvik::PointCollections {

/// The names of all files and folders in a folder, without "." and "..", in any order. Empty if the
/// folder cannot be read. The iterators of std::filesystem can do the same, but with GCC they end
/// the program when memory runs out.
/// @param folder  the current one if it is empty
/// @throws std::bad_alloc
std::vector<std::filesystem::path> namesInFolder(const std::filesystem::path& folder);

}
