// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/StateFolder.h"

#include <cstdlib>

namespace Tarvik::PointCollections {

std::filesystem::path defaultStateFolder()
{
  const wchar_t* const text = _wgetenv(L"LOCALAPPDATA");
  return text != nullptr && *text != L'\0' ? std::filesystem::path(text) / "point-collections"
                                           : std::filesystem::path();
}

}
