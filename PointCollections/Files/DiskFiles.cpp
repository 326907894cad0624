// SPDX-License-Identifier: MIT
#include "PointCollections/Files/DiskLock.h"
#include "PointCollections/Files/Files.h"
#include "PointCollections/Files/FolderNames.h"
#include "PointCollections/Files/Pipe.h"
#include "PointCollections/Files/SafeFileWriter.h"
#include "PointCollections/Files/SideFiles.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/SystemReason.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

/// An archive cannot be larger.
constexpr std::uintmax_t greatestSize = 0xFFFFFFFF;

/// How much is read or written until the user can stop it, in bytes.
constexpr std::size_t sizeOfPart = std::size_t(1) << 20U;

[[noreturn]] void fail(const fs::path& file, const std::string& message)
{
  throw UserError(fmt::format("{}: {}", printable(Utf8::fromPath(file)), message));
}

std::string reasonFor(const std::error_code& code)
{
  const bool isBusy = code.default_error_condition() == std::errc::device_or_resource_busy;
  // For translators: the reason why a file cannot be saved; in parentheses
  return isBusy ? translated("another program has it open") : printable(systemReason(code));
}

/// @param doubt  why the folder could not be flushed, if so
WriteResult resultOf(const std::error_code& doubt)
{
  if (!doubt)
    return {};
  return {translated("The file is saved, but flushing its folder to the disk failed ({}); after "
                     "a power cut, the old file may be back.",
                     reasonFor(doubt))};
}

bool isPipe(const fs::path& file)
{
  std::error_code ignored;
  return fs::is_fifo(file, ignored);
}

/// Reading a device might never end.
void refuseDevice(const fs::path& file)
{
  std::error_code ignored;
  const auto status = fs::status(file, ignored);
  if (fs::exists(status) && !fs::is_directory(status) && !fs::is_regular_file(status))
    fail(file, translated("this is a device or the like; expected a file"));
}

/// What `ask`, fs::status or fs::symlink_status, says about the file.
/// @throws UserError if the system does not tell it
fs::file_status statusOf(fs::file_status (*ask)(const fs::path&, std::error_code&),
                         const fs::path& file)
{
  std::error_code error;
  const auto status = ask(file, error);
  if (!fs::status_known(status))
    fail(file,
         translated("it cannot be found out whether this file exists ({})", reasonFor(error)));
  return status;
}

/// The size of the open file, in bytes. Asks the file itself: another one may have its name by now.
std::uintmax_t sizeOf(std::ifstream& stream, const fs::path& file)
{
  stream.seekg(0, std::ios::end);
  const auto size = static_cast<std::streamoff>(stream.tellg());
  stream.seekg(0);
  // Linux says 0 for files that it makes up while somebody reads, such as those in /proc.
  const bool isKnown =
      stream && (size > 0 || (size == 0 && stream.peek() == std::ifstream::traits_type::eof()));
  if (!isKnown)
    fail(file, translated("the size of this file cannot be found out"));
  stream.clear(); // from the end of an empty file
  return static_cast<std::uintmax_t>(size);
}

/// The shown numbers are complete even where std::size_t is smaller.
std::string mistakeInSize(std::uintmax_t size)
{
  return translatedCount(static_cast<std::size_t>(size),
                         // For translators: {1} is the number of bytes
                         "a file of {1} bytes; expected {2} at most",
                         "a file of {1} bytes; expected {2} at most", size, greatestSize);
}

std::vector<std::byte> readFirst(std::ifstream& stream, std::uintmax_t size, const fs::path& file)
{
  std::vector<std::byte> bytes(static_cast<std::size_t>(size));
  for (std::span<std::byte> rest = bytes; !rest.empty();) {
    checkInterruption();
    const auto part = rest.first(std::min(rest.size(), sizeOfPart));
    stream.read(reinterpret_cast<char*>(part.data()), static_cast<std::streamsize>(part.size()));
    if (static_cast<std::size_t>(stream.gcount()) != part.size())
      fail(file, translated("reading the file failed"));
    rest = rest.subspan(part.size());
  }
  return bytes;
}

std::string nameOf(const fs::path& folder)
{
  std::error_code error;
  const auto shown = folder.empty() ? fs::current_path(error) : folder;
  return printable(Utf8::fromPath(error ? fs::path(".") : shown));
}

class DiskFiles : public Files {
public:
  std::string readText(const fs::path& file) override
  {
    if (isPipe(file)) {
      std::istringstream content(readPipe(file));
      return PointCollections::readText(content, printable(Utf8::fromPath(file)));
    }
    refuseDevice(file);
    return PointCollections::readText(file);
  }

  bool isReadOnce(const fs::path& file) override { return isPipe(file); }

  std::vector<std::byte> readBytes(const fs::path& file) override
  {
    refuseDevice(file);
    auto stream = openText(file);
    const auto size = sizeOf(stream, file);
    if (size > greatestSize)
      fail(file, mistakeInSize(size));
    return readFirst(stream, size, file);
  }

  FileStart readStart(const fs::path& file, std::size_t count) override
  {
    refuseDevice(file);
    auto stream = openText(file);
    const auto size = sizeOf(stream, file);
    return {readFirst(stream, std::min<std::uintmax_t>(size, count), file), size};
  }

  WriteResult write(const fs::path& file, std::span<const std::byte> bytes) override
  {
    Cancellation nobodyCancels;
    return writeUnlessCancelled(file, bytes, nobodyCancels).value_or(WriteResult());
  }

  std::optional<WriteResult> writeUnlessCancelled(const fs::path& file,
                                                  std::span<const std::byte> bytes,
                                                  Cancellation& cancellation) override
  {
    try {
      SafeFileWriter writer(file);
      for (; !bytes.empty() && !cancellation.isCancelled();
           bytes = bytes.subspan(std::min(bytes.size(), sizeOfPart))) {
        checkInterruption();
        writer.write(bytes.first(std::min(bytes.size(), sizeOfPart)));
      }
      if (cancellation.isCancelled())
        return std::nullopt;
      checkInterruption();
      writer.close(); // may take long, too
      if (!cancellation.passPointOfNoReturn())
        return std::nullopt;
      return resultOf(writer.commit());
    } catch (const FolderNotWritable& error) {
      fail(file, translated("the file cannot be saved, because nothing can be written in the "
                            "folder {} ({}); save it in another one",
                            nameOf(error.folder()), reasonFor(error.code())));
    } catch (const std::system_error& error) {
      fail(file, translated("the file cannot be saved ({})", reasonFor(error.code())));
    }
  }

  std::unique_ptr<FileLock> lockForSaving(const fs::path& file) override
  {
    try {
      const auto target = SideFiles::followed(file);
      const auto lockFile = SideFiles::saveLock(target);
      auto lock = DiskLock::tryTake(lockFile);
      if (!lock)
        fail(file,
             translated("{} saves in this file at this moment; try again", holderOf(lockFile)));
      SideFiles::removeUnfinished(target);
      return lock;
    } catch (const std::system_error&) {
      return nullptr; // saving is more important than the lock; if it fails too, it tells why
    }
  }

  bool exists(const fs::path& file) override
  {
    return fs::exists(statusOf(fs::symlink_status, file));
  }

  bool areSame(const fs::path& one, const fs::path& other) override
  {
    if (!fs::exists(statusOf(fs::status, one)) || !fs::exists(statusOf(fs::status, other)))
      return false;
    std::error_code error;
    const bool areSame = fs::equivalent(one, other, error);
    if (error)
      fail(one, translated("this file cannot be compared with {} ({})",
                           printable(Utf8::fromPath(other)), reasonFor(error)));
    return areSame;
  }

  std::vector<std::string> namesIn(const fs::path& folder) override
  {
    std::vector<std::string> names;
    for (const auto& each : namesInFolder(folder)) {
      std::error_code ignored;
      names.push_back(Utf8::fromPath(each) + (fs::is_directory(folder / each, ignored) ? "/" : ""));
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
