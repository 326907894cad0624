// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/RecoveryRecord.h"

#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/ClassRegistration.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <cstdint>
#include <new>
#include <system_error>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

using std::chrono::milliseconds;
using std::chrono::system_clock;

/// A record as it is in an archive.
struct PointRecovery {
  std::string file;
  std::string title;
  bool isProject = false;
  std::uint64_t fileSize = 0;
  std::uint64_t fileHash = 0;
  std::int64_t written = 0; ///< milliseconds since 1970
  std::string project;

  static void serialization_register(void* out);
};

void save(PersistenceArchiver& archive, const PointRecovery& record, unsigned int /*version*/)
{
  archive << record.file << record.title << record.isProject << record.fileSize << record.fileHash
          << record.written << record.project;
}

void load(PersistenceArchiver& archive, PointRecovery& record, unsigned int /*version*/)
{
  archive >> record.file >> record.title >> record.isProject >> record.fileSize >>
      record.fileHash >> record.written >> record.project;
}

const BaseClassRegister* registeredRecovery()
{
  constexpr unsigned int version = 1;
  constexpr unsigned int leastSize = 37; // three empty texts, three numbers and a bool
  static const auto* const registered =
      registerClass<PointRecovery, load, save>("PointRecovery", version, leastSize);
  return registered;
}

void PointRecovery::serialization_register(void* out)
{
  if (const auto* const registered = registeredRecovery())
    *static_cast<BaseClassRegister*>(out) = *registered;
}

/// The class must be registered before the first archive is opened.
[[maybe_unused]] const auto* const recoveryIsRegistered = registeredRecovery();

/// The path from the root; as it is if the system cannot tell. Other programs run in other folders.
std::filesystem::path fromRoot(const std::filesystem::path& file)
{
  std::error_code error;
  auto path = file.empty() ? file : std::filesystem::absolute(file, error);
  return error ? file : path;
}

PointRecovery recordIn(std::span<const std::byte> bytes)
{
  PersistenceArchiver archive(bytes);
  PointRecovery record;
  archive >> record;
  return record;
}

}

std::vector<std::byte> saveRecovery(const RecoveryRecord& record)
{
  const auto& opened = record.opened;
  const auto project = saveProject(*opened.document);
  PersistenceArchiver archive;
  archive << PointRecovery{
      Utf8::fromPath(fromRoot(opened.file)),
      opened.title,
      !opened.projectFile.empty(),
      opened.fileSize,
      opened.fileHash,
      std::chrono::duration_cast<milliseconds>(record.written.time_since_epoch()).count(),
      {reinterpret_cast<const char*>(project.data()), project.size()}};
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

RecoveryRecord loadRecovery(std::span<const std::byte> bytes, const std::string& name)
{
  try {
    auto record = recordIn(bytes);
    const auto file = Utf8::toPath(record.file);
    auto document = loadProject(std::as_bytes(std::span(record.project)), name);
    return {{std::move(document), std::move(record.title),
             record.isProject ? file : std::filesystem::path(), record.fileSize,
             static_cast<std::size_t>(record.fileHash), file},
            system_clock::time_point(milliseconds(record.written))};
  } catch (const ArchiveError& error) {
    throw UserError(fmt::format("{}: {}", name, printable(abbreviated(error.what(), 500))));
  } catch (const std::bad_alloc&) {
    throw UserError(
        fmt::format("{}: {}", name, translated("there is not enough memory for this file")));
  }
}

}
