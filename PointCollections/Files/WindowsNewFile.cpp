// SPDX-License-Identifier: MIT
#include "PointCollections/Files/NewFile.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

const auto closed = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);

[[noreturn]] void fail()
{
  const auto reason = GetLastError();
  if (reason == ERROR_SHARING_VIOLATION) // others map to a suitable std::errc
    throw std::system_error(std::make_error_code(std::errc::device_or_resource_busy));
  throw std::system_error(static_cast<int>(reason), std::system_category());
}

HANDLE handleOf(std::intptr_t value)
{
  return reinterpret_cast<HANDLE>(value);
}

bool isThere(const std::filesystem::path& file)
{
  return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Fails early if the file could not be replaced: the user has no right to it, or another program
/// has it open.
void checkWritable(const std::filesystem::path& file)
{
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE | DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE)
    fail();
  CloseHandle(handle);
}

HANDLE create(const std::filesystem::path& file)
{
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle != INVALID_HANDLE_VALUE)
    return handle;
  if (GetLastError() == ERROR_ACCESS_DENIED || GetLastError() == ERROR_WRITE_PROTECT)
    throw FolderNotWritable(file.parent_path(), std::make_error_code(std::errc::permission_denied));
  fail();
}

/// Copies the access rights of the model. If they cannot be read, those of the folder stay.
void takeRights(const std::filesystem::path& file, const std::filesystem::path& model)
{
  DWORD size = 0;
  GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> rights(size);
  if (!rights.empty() &&
      GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) != 0)
    SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, rights.data());
  const DWORD attributes = GetFileAttributesW(model.c_str());
  constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                         FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ARCHIVE;
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kept) != 0)
    SetFileAttributesW(file.c_str(), attributes & kept);
}

}

NewFile::NewFile() : m_handle(closed) {}

NewFile::NewFile(std::filesystem::path path, const std::filesystem::path& model) : NewFile()
{
  const bool hasModel = isThere(model);
  if (hasModel)
    checkWritable(model);
  m_handle = reinterpret_cast<std::intptr_t>(create(path));
  m_path = std::move(path); // from here on the destructor removes the file, whatever is thrown
  if (hasModel)
    takeRights(m_path, model);
}

NewFile::~NewFile()
{
  if (m_handle != closed)
    CloseHandle(handleOf(m_handle));
  if (!m_path.empty())
    DeleteFileW(m_path.c_str());
}

void NewFile::write(std::span<const std::byte> bytes)
{
  constexpr std::size_t most = std::size_t(1) << 20U;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), most));
    if (WriteFile(handleOf(m_handle), bytes.data(), count, &written, nullptr) == 0)
      fail();
    bytes = bytes.subspan(written);
  }
}

void NewFile::close()
{
  if (FlushFileBuffers(handleOf(m_handle)) == 0)
    fail();
  const HANDLE handle = handleOf(std::exchange(m_handle, closed));
  if (CloseHandle(handle) == 0)
    fail();
}

/// Not by ReplaceFile(), which renames twice: a kill between the two would leave no file.
std::error_code NewFile::replace(const std::filesystem::path& file)
{
  if (MoveFileExW(m_path.c_str(), file.c_str(),
                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0)
    fail();
  m_path.clear();
  return {}; // the system flushes the rename before it returns
}

}
