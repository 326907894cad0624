// SPDX-License-Identifier: MIT
#include "Translator/FolderEntries.h"

#if defined(_WIN32)
#include <system_error>
#else
#include <dirent.h>

#include <memory>
#endif

namespace Tarvik {

#if defined(_WIN32)
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
#else
/// Without std::filesystem::directory_iterator: that of libstdc++ ends the program when there is no
/// memory.
std::vector<std::string> entriesOf(const std::filesystem::path& folder)
{
  std::vector<std::string> names;
  const auto close = [](DIR* entries) { closedir(entries); };
  const std::unique_ptr<DIR, decltype(close)> entries(opendir(folder.c_str()), close);
  while (const auto* const entry = entries ? readdir(entries.get()) : nullptr)
    names.emplace_back(entry->d_name);
  return names;
}
#endif

}
