// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/ArchivedTypes.h"
#include "PersistenceArchiver/ClassTable.h"
#include "PersistenceArchiver/LittleEndian.h"
#include "PlatformExport.h"

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {

/// Writes one archive into memory that grows up to a limit. Not for hosts: PersistenceArchiver is.
///
/// A writer is open until finish(), or until something could not be written; clear() opens it
/// again. A closed writer has no room: everything that appends then calls grow(), which says why
/// the writer is closed. So appending needs only one check, the one for room.
class ArchiveWriter {
public:
  /// Begins an archive.
  ArchiveWriter();

  /// A closed writer, for an archive that is read.
  static ArchiveWriter unused();

  ArchiveWriter(const ArchiveWriter&) = delete;
  ArchiveWriter& operator=(const ArchiveWriter&) = delete;
  ~ArchiveWriter() = default;

  /// In bytes from the beginning of the archive.
  std::size_t position() const noexcept;

  /// Appends a number.
  /// @throws ArchiveError when it does not fit into the limit, like every operation that appends
  template <ArchivedNumber Number>
  void append(Number number);

  /// Appends the numbers without their count.
  template <ArchivedNumber Number>
  void append(std::span<const Number> numbers);

  /// Appends the length and the bytes.
  void append(const std::string& text);

  /// Appends a count of elements or bytes.
  /// @throws ArchiveError when the count takes more than 32 bits
  TKM_PERSISTENCEARCHIVER_API void appendCount(std::size_t count);

  /// Begins a frame, whose length closeFrame() writes.
  /// @param start      position() + 4
  /// @param classHash  the first word in it
  void openFrame(std::size_t start, unsigned int classHash);

  /// Ends a frame.
  /// @param start  the start of the frame that was opened last
  /// @param end    position()
  void closeFrame(std::size_t start, std::size_t end);

  /// Appends the class table and the checksum, and closes the writer.
  /// @param classes  those that are registered are written, the others erased
  /// @return the archive; the same one when it is called again
  std::span<const std::byte> finish(ClassTable::Records& classes);

  /// Closes an open writer whose archive is incomplete.
  TKM_PERSISTENCEARCHIVER_API void giveUp() noexcept;

  /// Begins another archive in the same memory.
  void clear();

  /// Lets the archive grow to this many bytes and no more.
  void limitSize(std::size_t bytes);

private:
  explicit ArchiveWriter(std::string_view closedBecause);

  template <ArchivedNumber Number>
  static void store(std::byte* place, Number number);
  std::byte* makeRoom(std::size_t count);
  TKM_PERSISTENCEARCHIVER_API void grow(std::size_t count);
  void begin();
  void close(std::string_view reason) noexcept;
  void requireOpen() const;
  void requireUsed() const;

  std::byte* m_position = nullptr;
  std::byte* m_end = nullptr;            ///< of the room; m_position when the writer is closed
  std::unique_ptr<std::byte[]> m_memory; // NOLINT(modernize-avoid-c-arrays): not filled with zeros
  std::size_t m_capacity = 0;
  std::size_t m_limit = ArchiveFormat::greatestArchiveSize;
  std::string_view m_closedBecause;       ///< empty when the writer is open
  std::span<const std::byte> m_finished;  ///< the archive; empty before finish()
  std::vector<std::size_t> m_frameStarts; ///< of the open frames, the innermost last
};

inline std::byte* ArchiveWriter::makeRoom(std::size_t count)
{
  if (static_cast<std::size_t>(m_end - m_position) < count)
    grow(count);
  return std::exchange(m_position, m_position + count);
}

template <ArchivedNumber Number>
inline void ArchiveWriter::store(std::byte* place, Number number)
{
  if constexpr (std::same_as<Number, bool>)
    storeLittleEndian(place, static_cast<std::uint8_t>(number));
  else if constexpr (std::same_as<Number, double>)
    storeLittleEndian(place, std::bit_cast<std::uint64_t>(number));
  else
    storeLittleEndian(place, number);
}

template <ArchivedNumber Number>
inline void ArchiveWriter::append(Number number)
{
  store(makeRoom(sizeof number), number);
}

template <ArchivedNumber Number>
inline void ArchiveWriter::append(std::span<const Number> numbers)
{
  auto* place = makeRoom(numbers.size_bytes());
  for (const auto number : numbers) {
    store(place, number);
    place += sizeof number;
  }
}

}
