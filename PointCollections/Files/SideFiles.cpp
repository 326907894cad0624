// SPDX-License-Identifier: MIT
#include "PointCollections/Files/SideFiles.h"

#include "Identifier/Identifier.h"
#include "PointCollections/Files/DiskLock.h"
#include "PointCollections/Files/FolderNames.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <cstdint>
#include <system_error>
#include <vector>

namespace Tarvik::PointCollections::SideFiles {
namespace {

namespace fs = std::filesystem;

constexpr auto unfinished = ".tmp";

/// FNV-1a. std::hash() differs between the programs that must agree on the names.
std::uint64_t hashOf(const std::string& text)
{
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : text)
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return hash;
}

std::string startFor(const fs::path& file)
{
  return startOfNames(Utf8::fromPath(file.filename()));
}

std::vector<fs::path> unfinishedFor(const fs::path& file)
{
  const auto start = startFor(file) + ".";
  std::vector<fs::path> found;
  for (const auto& each : namesInFolder(file.parent_path())) {
    const auto name = Utf8::fromPath(each);
    if (name.starts_with(start) && name.ends_with(unfinished))
      found.push_back(file.parent_path() / each);
  }
  return found;
}

}

fs::path followed(fs::path file)
{
  constexpr int mostLinks = 40;
  std::error_code ignored;
  for (int links = 0; fs::is_symlink(file, ignored); ++links) {
    if (links == mostLinks)
      throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels));
    file = file.parent_path() / fs::read_symlink(file);
  }
  return file;
}

std::string startOfNames(std::string name)
{
  for (char& c : name)
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return fmt::format(".point-collections-{:016x}", hashOf(name));
}

fs::path saveLock(const fs::path& file)
{
  return file.parent_path() / (startFor(file) + ".lock");
}

fs::path newUnfinished(const fs::path& file)
{
  return newName(file.parent_path(), startFor(file), unfinished);
}

fs::path newName(const fs::path& folder, const std::string& start, const std::string& ending)
{
  return folder /
         fmt::format("{}.{}-{}{}", start, currentProcess(), Identifier().toString(), ending);
}

void removeUnfinished(const fs::path& file)
{
  for (const auto& each : unfinishedFor(file)) {
    std::error_code ignored;
    fs::remove(each, ignored);
  }
}

bool hasUnfinished(const fs::path& file)
{
  return !unfinishedFor(file).empty();
}

}
