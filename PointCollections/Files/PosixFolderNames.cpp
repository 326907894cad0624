// SPDX-License-Identifier: MIT
#include "PointCollections/Files/FolderNames.h"

#include <dirent.h>

#include <memory>
#include <string_view>

namespace Tarvik::PointCollections {

std::vector<std::filesystem::path> namesInFolder(const std::filesystem::path& folder)
{
  const auto close = [](DIR* entries) { closedir(entries); };
  const std::unique_ptr<DIR, decltype(close)> entries(
      opendir(folder.empty() ? "." : folder.c_str()), close);
  std::vector<std::filesystem::path> names;
  while (const auto* const entry = entries ? readdir(entries.get()) : nullptr) {
    const std::string_view name(entry->d_name);
    if (name != "." && name != "..")
      names.emplace_back(name);
  }
  return names;
}

}
