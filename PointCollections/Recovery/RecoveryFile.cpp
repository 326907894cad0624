// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/RecoveryFile.h"

#include "PointCollections/Files/FolderNames.h"
#include "PointCollections/Files/SafeFileWriter.h"
#include "PointCollections/Files/SideFiles.h"
#include "PointCollections/Text/Utf8.h"

#include <set>
#include <system_error>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

fs::path lockOf(fs::path file)
{
  return file += recoveryLockEnding;
}

/// The lock; null if another process holds it, or the user may not take it.
std::unique_ptr<DiskLock> lockIfPossible(const fs::path& file)
{
  try {
    return DiskLock::tryTake(lockOf(file));
  } catch (const std::system_error&) {
    return nullptr;
  }
}

/// All recovery files in the place, also those of which only the lock is there.
std::set<fs::path> filesIn(const RecoveryPlace& place)
{
  std::set<fs::path> files;
  for (const auto& each : namesInFolder(place.folder)) {
    auto name = Utf8::fromPath(each);
    if (!name.starts_with(place.start + "."))
      continue;
    if (name.ends_with(recoveryLockEnding))
      name.erase(name.size() - std::string_view(recoveryLockEnding).size());
    if (name.ends_with(recoveryEnding))
      files.insert(place.folder / Utf8::toPath(name));
  }
  return files;
}

}

RecoveryFile::RecoveryFile(fs::path path, std::unique_ptr<DiskLock> lock)
    : m_path(std::move(path)), m_lock(std::move(lock))
{}

RecoveryFile RecoveryFile::make(const RecoveryPlace& place)
{
  if (place.isOwn && fs::create_directories(place.folder))
    fs::permissions(place.folder, fs::perms::owner_all);
  auto path = SideFiles::newName(place.folder, place.start, recoveryEnding);
  auto lock = DiskLock::tryTake(lockOf(path));
  if (!lock)
    throw std::system_error(std::make_error_code(std::errc::device_or_resource_busy));
  return {std::move(path), std::move(lock)};
}

std::vector<RecoveryFile> RecoveryFile::takeAbandoned(const RecoveryPlace& place)
{
  std::vector<RecoveryFile> abandoned;
  for (const auto& path : filesIn(place)) {
    auto lock = lockIfPossible(path);
    if (!lock)
      continue;
    RecoveryFile file(path, std::move(lock));
    SideFiles::removeUnfinished(path);
    std::error_code error;
    if (fs::exists(path, error))
      abandoned.push_back(std::move(file));
  }
  return abandoned;
}

void RecoveryFile::write(std::span<const std::byte> bytes, const fs::path& model)
{
  SafeFileWriter writer(m_path, model);
  writer.write(bytes);
  static_cast<void>(writer.commit()); // after a power cut an older one is as good as possible
}

void RecoveryFile::remove()
{
  std::error_code ignored;
  fs::remove(m_path, ignored);
}

}
