// SPDX-License-Identifier: MIT
#include "PointCollections/Files/NewFile.h"

#include "PointCollections/Files/PosixError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

constexpr int closed = -1;

/// Makes a write beyond the greatest file size fail, which would otherwise end the program.
class FileSizeSignalIgnored {
public:
  FileSizeSignalIgnored() : m_before(std::signal(SIGXFSZ, SIG_IGN)) {}
  FileSizeSignalIgnored(const FileSizeSignalIgnored&) = delete;
  FileSizeSignalIgnored& operator=(const FileSizeSignalIgnored&) = delete;
  ~FileSizeSignalIgnored() { std::signal(SIGXFSZ, m_before); }

private:
  void (*m_before)(int);
};

/// The status of a file; nothing if it does not exist.
/// @throws std::system_error if the user may not write to it
std::optional<struct stat> writableFile(const char* path)
{
  struct stat known = {};
  if (stat(path, &known) != 0) {
    if (errno == ENOENT)
      return std::nullopt;
    throwSystemError();
  }
  if (faccessat(AT_FDCWD, path, W_OK, AT_EACCESS) != 0)
    throwSystemError();
  return known;
}

int create(const std::filesystem::path& path, mode_t mode)
{
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  if (file >= 0)
    return file;
  if (errno == EACCES || errno == EPERM || errno == EROFS)
    throw FolderNotWritable(path.parent_path(), {errno, std::generic_category()});
  throwSystemError();
}

/// Copies the access control list of the model, and drops the one that the folder gave.
/// @return false if the model has a list that cannot be copied
bool takeAccessList(int file, const char* model)
{
#if defined(__linux__)
  constexpr auto name = "system.posix_acl_access";
  static_cast<void>(fremovexattr(file, name));
  const auto size = getxattr(model, name, nullptr, 0);
  if (size <= 0)
    return size == 0 || errno == ENODATA || errno == ENOTSUP;
  std::vector<char> list(static_cast<std::size_t>(size));
  return getxattr(model, name, list.data(), list.size()) == size &&
         fsetxattr(file, name, list.data(), list.size(), 0) == 0;
#else
  return true;
#endif
}

/// Copies owner and rights of the model. If the user may not give the file to its old group, the
/// user's own group must not gain rights: it only gets those of all others. With an access control
/// list, the group rights in the mode are only an upper bound for the list.
void takeRights(int file, const char* path, const struct stat& model)
{
  constexpr mode_t groupRights = S_IRWXG;
  mode_t mode = model.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
  if (fchown(file, model.st_uid, model.st_gid) != 0 &&
      fchown(file, static_cast<uid_t>(-1), model.st_gid) != 0)
    mode = (mode & ~groupRights) | (mode & S_IRWXO) << 3U;
  if (!takeAccessList(file, path))
    mode &= ~groupRights;
  static_cast<void>(fchmod(file, mode)); // if that fails, only the owner has rights
}

/// Flushes a rename to the disk. Some kinds of folders cannot be opened or flushed: they keep a
/// rename anyway, or offer no way to make sure of it. That is no failure.
std::error_code flushFolder(const std::filesystem::path& file)
{
  const auto folder = file.has_parent_path() ? file.parent_path() : ".";
  const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0)
    return {};
  const int result = fsync(handle);
  const int reason = errno;
  close(handle);
  const bool isUnsupported = reason == EINVAL || reason == ENOTSUP;
  return result == 0 || isUnsupported ? std::error_code()
                                      : std::error_code(reason, std::generic_category());
}

}

NewFile::NewFile() : m_handle(closed) {}

NewFile::NewFile(std::filesystem::path path, const std::filesystem::path& model) : NewFile()
{
  constexpr mode_t ownerOnly = 0600; // until takeRights() has set them
  constexpr mode_t usual = 0666;     // less the bits in the user's mask
  const auto known = writableFile(model.c_str());
  m_handle = create(path, known ? ownerOnly : usual);
  m_path.swap(path); // from here on the destructor removes the file, whatever is thrown
  if (known)
    takeRights(static_cast<int>(m_handle), model.c_str(), *known);
}

NewFile::~NewFile()
{
  if (m_handle != closed)
    ::close(static_cast<int>(m_handle));
  if (!m_path.empty())
    unlink(m_path.c_str());
}

// NOLINTNEXTLINE(readability-make-member-function-const): it changes the file
void NewFile::write(std::span<const std::byte> bytes)
{
  constexpr std::size_t most = std::size_t(1) << 20U;
  const FileSizeSignalIgnored ignored;
  while (!bytes.empty()) {
    const auto written =
        ::write(static_cast<int>(m_handle), bytes.data(), std::min(bytes.size(), most));
    if (written < 0 && errno != EINTR)
      throwSystemError();
    bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
  }
}

void NewFile::close()
{
  const int file = static_cast<int>(m_handle);
  if (fsync(file) != 0)
    throwSystemError();
  m_handle = closed; // in any case: closing twice might close another file
  if (::close(file) != 0 && errno != EINTR)
    throwSystemError();
}

std::error_code NewFile::replace(const std::filesystem::path& file)
{
  if (std::rename(m_path.c_str(), file.c_str()) != 0)
    throwSystemError();
  m_path.clear();
  return flushFolder(file);
}

}
