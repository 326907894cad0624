// SPDX-License-Identifier: MIT
#include "Translator/LibraryFolder.h"

#if defined(_WIN32)
#include <windows.h>

#include <string>
#else
#include <dlfcn.h>

#include <system_error>
#endif

namespace Tarvik {
namespace {

constexpr char placeInLibrary = 0;

}

#if defined(_WIN32)
std::filesystem::path libraryFolder()
{
  HMODULE library = nullptr;
  constexpr DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  const void* const place = &placeInLibrary;
  if (GetModuleHandleExW(flags, static_cast<LPCWSTR>(place), &library) == 0)
    return {};
  constexpr std::size_t longestPath = 32768; // of all paths on Windows
  std::wstring file(longestPath, L'\0');
  file.resize(GetModuleFileNameW(library, file.data(), static_cast<DWORD>(file.size())));
  return std::filesystem::path(file).parent_path();
}
#else
std::filesystem::path libraryFolder()
{
  Dl_info info = {};
  if (dladdr(&placeInLibrary, &info) == 0 || info.dli_fname == nullptr)
    return {};
  std::error_code error;
  const auto file = std::filesystem::canonical(info.dli_fname, error);
  return error ? std::filesystem::path() : file.parent_path();
}
#endif

}
