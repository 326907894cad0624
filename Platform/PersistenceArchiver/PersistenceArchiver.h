// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PlatformExport.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace Tarvik {

/// Writes values into a growing block of bytes, or reads them back from one, and knows the classes
/// whose objects take part.
///
/// Values stand one after the other, numbers with their lowest byte first on every machine. An
/// archive either writes or reads; using it the other way is a std::logic_error. Files are the
/// program's affair. One thread at a time; the class registry may be used from any thread.
class TKM_PERSISTENCEARCHIVER_API PersistenceArchiver {
public:
  /// Makes a class known under its name.
  /// @param name     unique among the classes of the program
  /// @param record   the class's record; its class hash is ignored
  /// @param version  the class's version
  /// @return the registered record, with its class hash, valid while the library is loaded. A class
  ///         that is registered already keeps the record that it has. Null when the name's hash
  ///         stands for another class or another version.
  static BaseClassRegister*
  registerFactory(const std::string& name, const BaseClassRegister& record, unsigned int version);

  /// The 32-bit hash of a name: the same in every process and on every machine.
  static unsigned int getHashForName(const std::string& name);

  /// An empty archive to write into.
  PersistenceArchiver();

  /// An archive to read from.
  /// @param bytes  not copied; must outlive the archive
  explicit PersistenceArchiver(std::span<const std::byte> bytes);

  PersistenceArchiver(const PersistenceArchiver&) = delete;
  PersistenceArchiver& operator=(const PersistenceArchiver&) = delete;
  ~PersistenceArchiver();

  /// What has been written so far; valid until the next value is written.
  std::span<const std::byte> bytes() const noexcept;

  /// How many bytes have been written.
  std::uint64_t tellp() const noexcept;

  /// Writes 32 bits.
  PersistenceArchiver& operator<<(const unsigned int& value);

  /// Writes 64 bits.
  PersistenceArchiver& operator<<(const std::uint64_t& value);

  /// Writes the length of the text in bytes, 32 bits, and the bytes.
  /// @throws ArchiveError when the text is longer than 32 bits can tell
  PersistenceArchiver& operator<<(const std::string& text);

  /// Reads 32 bits.
  /// @throws ArchiveError when fewer bytes are left than the value needs; the value is unchanged
  PersistenceArchiver& operator>>(unsigned int& value);

  /// Reads 64 bits, with the same exception.
  PersistenceArchiver& operator>>(std::uint64_t& value);

  /// Reads a text, with the same exception.
  PersistenceArchiver& operator>>(std::string& text);

private:
  template <class Number>
  void write(Number value);
  template <class Number>
  Number read();
  std::span<const std::byte> take(std::size_t count);
  void checkDirection(bool reads) const;

  bool m_reads;
  std::vector<std::byte> m_written;
  std::span<const std::byte> m_source;
  std::size_t m_readPosition = 0;
};

}
