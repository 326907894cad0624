// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/RecoveryPlaces.h"

#include "PointCollections/Files/SideFiles.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Utf8.h"

#include <system_error>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

/// The path from the root, the same for all ways to the file; as it is if the system cannot tell.
fs::path resolved(const fs::path& file)
{
  std::error_code error;
  auto path = fs::weakly_canonical(fs::absolute(file, error), error);
  return error ? file : path;
}

}

std::vector<RecoveryPlace> recoveryPlaces(const fs::path& file, const fs::path& stateFolder)
{
  const auto target = resolved(file);
  std::vector<RecoveryPlace> places;
  if (isProjectName(file))
    places.push_back(
        {target.parent_path(), SideFiles::startOfNames(Utf8::fromPath(target.filename()))});
  if (!stateFolder.empty())
    places.push_back({stateFolder, SideFiles::startOfNames(Utf8::fromPath(target)), true});
  return places;
}

}
