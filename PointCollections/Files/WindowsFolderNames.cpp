// SPDX-License-Identifier: MIT
#include "PointCollections/Files/FolderNames.h"

#include <windows.h>

#include <memory>
#include <string_view>

namespace Tarvik::PointCollections {

std::vector<std::filesystem::path> namesInFolder(const std::filesystem::path& folder)
{
  std::vector<std::filesystem::path> names;
  WIN32_FIND_DATAW found = {};
  const HANDLE handle = FindFirstFileW((folder / "*").c_str(), &found);
  if (handle == INVALID_HANDLE_VALUE)
    return names;
  const auto close = [](void* search) { FindClose(search); };
  const std::unique_ptr<void, decltype(close)> search(handle, close);
  do {
    const std::wstring_view name(found.cFileName);
    if (name != L"." && name != L"..")
      names.emplace_back(name);
  } while (FindNextFileW(handle, &found) != 0);
  return names;
}

}
