// SPDX-License-Identifier: MIT
#include "Translator/LibraryFolder.h"

#include <dlfcn.h>

#include <system_error>

namespace Tarvik {
namespace {

constexpr char placeInLibrary = 0;

}

std::filesystem::path libraryFolder()
{
  Dl_info info = {};
  if (dladdr(&placeInLibrary, &info) == 0 || info.dli_fname == nullptr)
    return {};
  std::error_code error;
  const auto file = std::filesystem::canonical(info.dli_fname, error);
  return error ? std::filesystem::path() : file.parent_path();
}

}
