// SPDX-License-Identifier: MIT
#include "Translator/FolderEntries.h"

#include <dirent.h>

#include <memory>

namespace Tarvik {
namespace {

struct Closer {
  void operator()(DIR* folder) const { closedir(folder); }
};

}

/// Without std::filesystem::directory_iterator: that of libstdc++ ends the program when there is no
/// memory.
std::vector<std::string> entriesOf(const std::filesystem::path& folder)
{
  std::vector<std::string> names;
  const std::unique_ptr<DIR, Closer> open(opendir(folder.c_str()));
  if (!open)
    return names;
  while (const auto* const entry = readdir(open.get()))
    names.emplace_back(entry->d_name);
  return names;
}

}
