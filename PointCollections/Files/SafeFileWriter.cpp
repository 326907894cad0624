// SPDX-License-Identifier: MIT
#include "PointCollections/Files/SafeFileWriter.h"

#include "PointCollections/Files/SideFiles.h"

#include <system_error>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(std::errc reason)
{
  throw std::system_error(std::make_error_code(reason));
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
  return SideFiles::newUnfinished(file);
}

}

SafeFileWriter::SafeFileWriter(const fs::path& file)
    : m_file(SideFiles::followed(file)), m_newFile(newNameBeside(m_file), m_file)
{}

SafeFileWriter::SafeFileWriter(const fs::path& file, const fs::path& model)
    : m_file(SideFiles::followed(file)), m_newFile(newNameBeside(m_file), model)
{}

void SafeFileWriter::write(std::span<const std::byte> bytes)
{
  m_newFile.write(bytes);
}

void SafeFileWriter::close()
{
  m_newFile.close();
  m_isClosed = true;
}

std::error_code SafeFileWriter::commit()
{
  if (!m_isClosed)
    close();
  return m_newFile.replace(m_file);
}

}
