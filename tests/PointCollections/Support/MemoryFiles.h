// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Files/Files.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// Files in memory, so that a script cannot touch the disk.
class MemoryFiles : public Files {
public:
  std::map<std::string, std::string> contents; ///< by file name
  bool isFull = false;                         ///< makes every write fail
  bool isBeingSaved = false;                   ///< by another program
  std::string warning;                         ///< of every write
  int wholeReads = 0;                          ///< how often all bytes of a file were read

  std::string readText(const std::filesystem::path& file) override { return contentOf(file); }

  std::vector<std::byte> readBytes(const std::filesystem::path& file) override
  {
    ++wholeReads;
    const auto content = contentOf(file);
    const auto bytes = std::as_bytes(std::span(content));
    return {bytes.begin(), bytes.end()};
  }

  FileStart readStart(const std::filesystem::path& file, std::size_t count) override
  {
    const auto content = contentOf(file);
    const auto bytes = std::as_bytes(std::span(content)).first(std::min(count, content.size()));
    return {{bytes.begin(), bytes.end()}, content.size()};
  }

  WriteResult write(const std::filesystem::path& file, std::span<const std::byte> bytes) override
  {
    if (isFull)
      throw UserError(printable(nameOf(file)) + ": the disk is full");
    auto& content = contents[nameOf(file)];
    content.resize(bytes.size());
    std::ranges::copy(bytes, std::as_writable_bytes(std::span(content)).begin());
    return {warning};
  }

  std::unique_ptr<FileLock> lockForSaving(const std::filesystem::path& file) override
  {
    if (isBeingSaved)
      throw UserError(printable(nameOf(file)) + ": process 7 saves in this file; try again");
    return nullptr;
  }

  bool exists(const std::filesystem::path& file) override
  {
    return contents.contains(nameOf(file));
  }

  bool areSame(const std::filesystem::path& one, const std::filesystem::path& other) override
  {
    return exists(one) && nameOf(one) == nameOf(other);
  }

  std::vector<std::string> namesIn(const std::filesystem::path& folder) override
  {
    const auto start = folder.empty() ? std::string() : nameOf(folder / "");
    std::vector<std::string> names;
    for (const auto& [path, content] : contents) {
      if (!path.starts_with(start))
        continue;
      const auto rest = path.substr(start.size());
      const auto name = rest.substr(0, std::min(rest.find('/'), rest.size() - 1) + 1);
      if (names.empty() || names.back() != name)
        names.push_back(name);
    }
    return names;
  }

private:
  static std::string nameOf(const std::filesystem::path& file)
  {
    const auto name = file.lexically_normal().generic_u8string();
    return {name.begin(), name.end()};
  }

  std::string contentOf(const std::filesystem::path& file) const
  {
    const auto found = contents.find(nameOf(file));
    if (found == contents.end())
      throw UserError(printable(nameOf(file)) + ": there is no such file");
    return found->second;
  }
};

}
