// SPDX-License-Identifier: MIT
#include "PointCollections/Files/SafeFileWriter.h"

#include "Identifier/Identifier.h"

#include <system_error>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(std::errc reason)
{
  throw std::system_error(std::make_error_code(reason));
}

/// The file that the links lead to; it need not exist.
fs::path followed(fs::path file)
{
  constexpr int mostLinks = 40;
  std::error_code ignored;
  for (int links = 0; fs::is_symlink(file, ignored); ++links) {
    if (links == mostLinks)
      refuse(std::errc::too_many_symbolic_link_levels);
    file = file.parent_path() / fs::read_symlink(file);
  }
  return file;
}

/// Renaming would replace anything but a folder.
void checkReplaceable(const fs::path& file)
{
  constexpr auto writable =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  const auto status = fs::status(file);
  if (!fs::exists(status))
    return;
  if (fs::is_directory(status))
    refuse(std::errc::is_a_directory);
  if (!fs::is_regular_file(status))
    refuse(std::errc::operation_not_supported);
  if ((status.permissions() & writable) == fs::perms::none)
    refuse(std::errc::permission_denied); // even if the system would allow it
}

fs::path newNameBeside(const fs::path& file)
{
  checkReplaceable(file);
  return file.parent_path() / (".point-collections-" + Identifier().toString() + ".tmp");
}

}

SafeFileWriter::SafeFileWriter(const fs::path& file)
    : m_file(followed(file)), m_newFile(newNameBeside(m_file), m_file)
{}

void SafeFileWriter::write(std::span<const std::byte> bytes)
{
  m_newFile.write(bytes);
}

void SafeFileWriter::commit()
{
  m_newFile.close();
  m_newFile.replace(m_file);
}

}
