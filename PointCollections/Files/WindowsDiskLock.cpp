// SPDX-License-Identifier: MIT
#include "PointCollections/Files/DiskLock.h"

#include "PointCollections/Files/LockHolder.h"
#include "PointCollections/Text/Utf8.h"

#include <windows.h>

#include <array>
#include <system_error>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

/// The name of this program; empty if the system does not tell it.
std::string currentProgram()
{
  std::array<wchar_t, 1024> path{};
  const auto size = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return Utf8::fromPath(fs::path(std::wstring(path.data(), size)).stem());
}

/// If this fails, others are not told who holds the lock. It is held all the same.
void writeHolder(HANDLE handle)
{
  const auto text = textOfHolder(currentProcess(), currentProgram());
  DWORD written = 0;
  WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

}

/// Whoever has the file open holds the lock: nobody else can then open it for writing. The system
/// removes the file when the handle is closed, even after a kill. LockFileEx() would do neither
/// sooner nor better, and its file would stay.
std::unique_ptr<DiskLock> DiskLock::tryTake(const fs::path& file)
{
  std::unique_ptr<DiskLock> lock(new DiskLock(file)); // from here on, it lets go of what it holds
  const HANDLE handle =
      CreateFileW(file.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                  FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (handle != INVALID_HANDLE_VALUE) {
    lock->m_handle = reinterpret_cast<std::intptr_t>(handle);
    writeHolder(handle);
    return lock;
  }
  if (GetLastError() == ERROR_SHARING_VIOLATION)
    return nullptr;
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

DiskLock::DiskLock(fs::path file) : m_file(std::move(file)) {}

DiskLock::~DiskLock()
{
  if (m_handle != none)
    CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}

std::string holderOf(const fs::path& file)
{
  std::array<char, 1024> text{};
  DWORD size = 0;
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle != INVALID_HANDLE_VALUE) {
    ReadFile(handle, text.data(), static_cast<DWORD>(text.size()), &size, nullptr);
    CloseHandle(handle);
  }
  return shownHolder({text.data(), size});
}

std::uint64_t currentProcess()
{
  return GetCurrentProcessId();
}

}
