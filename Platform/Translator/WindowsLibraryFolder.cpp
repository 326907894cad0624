// SPDX-License-Identifier: MIT
#include "Translator/LibraryFolder.h"

#include <windows.h>

#include <string>

namespace Tarvik {
namespace {

constexpr wchar_t placeInLibrary = 0;

}

std::filesystem::path libraryFolder()
{
  HMODULE library = nullptr;
  constexpr DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (GetModuleHandleExW(flags, &placeInLibrary, &library) == 0)
    return {};
  constexpr std::size_t longestPath = 32768; // of all paths on Windows
  std::wstring file(longestPath, L'\0');
  const auto length = GetModuleFileNameW(library, file.data(), static_cast<DWORD>(file.size()));
  file.resize(length);
  return std::filesystem::path(file).parent_path();
}

}
