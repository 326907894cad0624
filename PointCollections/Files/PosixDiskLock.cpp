// SPDX-License-Identifier: MIT
#include "PointCollections/Files/DiskLock.h"
#include "PointCollections/Files/LockHolder.h"
#include "PointCollections/Files/PosixError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;

int openLock(const fs::path& file)
{
  constexpr int always = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  constexpr mode_t usual = 0666; // less the bits in the user's mask
  int handle = open(file.c_str(), always | O_RDWR | O_CREAT, usual);
  // what another user has left can only be read, which is enough for a lock
  if (handle < 0 && errno == EACCES)
    handle = open(file.c_str(), always | O_RDONLY);
  if (handle < 0)
    throwSystemError();
  return handle;
}

/// Whether this is still the file with that name: its last holder may just have removed it.
bool isCurrent(int handle, const fs::path& file)
{
  struct stat own = {};
  struct stat named = {};
  return fstat(handle, &own) == 0 && lstat(file.c_str(), &named) == 0 &&
         own.st_ino == named.st_ino && own.st_dev == named.st_dev;
}

/// The name of this program; empty if the system does not tell it.
std::string currentProgram()
{
  std::error_code ignored;
  return fs::read_symlink("/proc/self/exe", ignored).filename().string();
}

/// If this fails, others are not told who holds the lock. It is held all the same.
void writeHolder(int handle)
{
  const auto text = textOfHolder(currentProcess(), currentProgram());
  if (ftruncate(handle, 0) == 0)
    static_cast<void>(write(handle, text.data(), text.size()) > 0);
}

}

std::unique_ptr<DiskLock> DiskLock::tryTake(const fs::path& file)
{
  std::unique_ptr<DiskLock> lock(new DiskLock(file)); // from here on, it lets go of what it holds
  constexpr int mostTries = 100; // each needs a holder that ends at this moment
  for (int i = 0; i < mostTries; ++i) {
    const int handle = openLock(file);
    const int result = flock(handle, LOCK_EX | LOCK_NB);
    if (result == 0 && isCurrent(handle, file)) {
      lock->m_handle = handle;
      writeHolder(handle);
      return lock;
    }
    const int reason = errno;
    close(handle);
    if (result != 0 && reason == EWOULDBLOCK)
      return nullptr;
    if (result != 0)
      throw std::system_error(reason, std::generic_category());
  }
  throw std::system_error(std::make_error_code(std::errc::no_lock_available));
}

DiskLock::DiskLock(fs::path file) : m_file(std::move(file)) {}

/// Removes the file first: who opens it later makes a new one, and who has it open sees that.
DiskLock::~DiskLock()
{
  if (m_handle == none)
    return;
  unlink(m_file.c_str());
  close(static_cast<int>(m_handle));
}

std::string holderOf(const fs::path& file)
{
  std::array<char, 1024> text{};
  std::ifstream stream(file, std::ios::binary);
  stream.read(text.data(), text.size());
  const auto size = static_cast<std::size_t>(stream.gcount());
  return shownHolder({text.data(), size});
}

std::uint64_t currentProcess()
{
  return static_cast<std::uint64_t>(getpid());
}

}
