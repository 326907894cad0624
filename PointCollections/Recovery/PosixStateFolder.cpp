// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/StateFolder.h"

#include <cstdlib>

namespace Tarvik::PointCollections {
namespace {

/// The folder that the environment names; empty if it names none, or not from the root.
std::filesystem::path folderIn(const char* variable)
{
  const char* const text = std::getenv(variable);
  const std::filesystem::path folder = text != nullptr ? text : "";
  return folder.is_absolute() ? folder : std::filesystem::path();
}

}

std::filesystem::path defaultStateFolder()
{
  constexpr auto name = "point-collections";
  if (const auto folder = folderIn("XDG_STATE_HOME"); !folder.empty())
    return folder / name;
  const auto home = folderIn("HOME");
  return home.empty() ? home : home / ".local" / "state" / name;
}

}
