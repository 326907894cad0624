// SPDX-License-Identifier: MIT
#include "PointCollections/Files/Files.h"
#include "PointCollections/Files/SafeFileWriter.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

/// An archive cannot be larger.
constexpr std::uintmax_t greatestSize = 0xFFFFFFFF;

[[noreturn]] void fail(const fs::path& file, const std::string& message)
{
  throw UserError(fmt::format("{}: {}", printable(Utf8::fromPath(file)), message));
}

/// Not the message of Windows itself, which is in the user's language and code page.
std::string reasonFor(const std::error_code& code)
{
  const auto condition = code.default_error_condition();
  return condition == std::errc::device_or_resource_busy ? "another program has it open"
                                                         : condition.message();
}

/// Reading a device might never end.
void refuseDevice(const fs::path& file)
{
  std::error_code ignored;
  const auto status = fs::status(file, ignored);
  if (fs::exists(status) && !fs::is_directory(status) && !fs::is_regular_file(status))
    fail(file, "this is a device or the like; expected a file");
}

std::uintmax_t sizeOf(const fs::path& file)
{
  std::error_code ignored;
  const auto size = fs::file_size(file, ignored);
  return ignored ? 0 : size;
}

std::uintmax_t sizeToRead(const fs::path& file)
{
  const auto size = sizeOf(file);
  if (size > greatestSize)
    fail(file, fmt::format("a file of {} bytes; expected {} at most", size, greatestSize));
  return size;
}

std::vector<std::byte> readFirst(const fs::path& file, std::uintmax_t size)
{
  auto stream = openText(file);
  std::vector<std::byte> bytes(static_cast<std::size_t>(size));
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  if (static_cast<std::uintmax_t>(stream.gcount()) != size)
    fail(file, "reading the file failed");
  return bytes;
}

class DiskFiles : public Files {
public:
  std::string readText(const fs::path& file) override
  {
    refuseDevice(file);
    return PointCollections::readText(file);
  }

  std::vector<std::byte> readBytes(const fs::path& file) override
  {
    refuseDevice(file);
    return readFirst(file, sizeToRead(file));
  }

  FileStart readStart(const fs::path& file, std::size_t count) override
  {
    refuseDevice(file);
    const auto size = sizeOf(file);
    return {readFirst(file, std::min<std::uintmax_t>(size, count)), size};
  }

  void write(const fs::path& file, std::span<const std::byte> bytes) override
  {
    try {
      SafeFileWriter writer(file);
      writer.write(bytes);
      writer.commit();
    } catch (const std::system_error& error) {
      fail(file, fmt::format("the file cannot be saved ({})", printable(reasonFor(error.code()))));
    }
  }

  bool exists(const fs::path& file) override
  {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(file, ignored));
  }

  bool areSame(const fs::path& one, const fs::path& other) override
  {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored);
  }

  std::vector<std::string> namesIn(const fs::path& folder) override
  {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end;
         !error && entry != end; entry.increment(error)) {
      std::error_code ignored;
      names.push_back(Utf8::fromPath(entry->path().filename()) +
                      (entry->is_directory(ignored) ? "/" : ""));
    }
    return names;
  }
};

}

std::shared_ptr<Files> diskFiles()
{
  return std::make_shared<DiskFiles>();
}

}
