// SPDX-License-Identifier: MIT
#include "Translator/FolderEntries.h"

#include <system_error>

namespace Tarvik {

std::vector<std::string> entriesOf(const std::filesystem::path& folder)
{
  namespace fs = std::filesystem;
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end;
       each.increment(error)) {
    const auto name = each->path().filename().u8string();
    names.emplace_back(name.begin(), name.end());
  }
  return names;
}

}
