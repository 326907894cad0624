// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/ArchivedTypes.h"
#include "PersistenceArchiver/ClassTable.h"
#include "PersistenceArchiver/LittleEndian.h"
#include "PlatformExport.h"

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Reads one archive. Not for hosts: PersistenceArchiver is.
///
/// The position is always within the innermost open frame, or within the body when no frame is
/// open. To read past its end is an ArchiveError, and changes nothing. An unused reader has nothing
/// to read, and to ask it for anything is a mistake of the program.
class ArchiveReader {
public:
  /// An unused reader, for an archive that is written.
  ArchiveReader() = default;

  /// Checks the header and the checksum.
  /// @param archive  must outlive the reader
  explicit ArchiveReader(std::span<const std::byte> archive);

  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;
  ~ArchiveReader() = default;

  /// As PersistenceArchiver::checkStart().
  static void checkStart(std::span<const std::byte> start, std::uint64_t size);

  /// Reads and checks the class table; goes to the beginning of the body.
  ClassTable::Records readClassTable();

  /// In bytes from the beginning of the archive.
  std::size_t position() const noexcept;

  /// The number of bytes up to the end of the frame, or of the body.
  std::size_t remaining() const noexcept { return static_cast<std::size_t>(m_end - m_position); }

  /// Reads a number.
  /// @throws ArchiveError when fewer bytes remain, like every operation that reads
  template <ArchivedNumber Number>
  Number take();

  /// Reads as many numbers as the span has, without a count.
  template <ArchivedNumber Number>
  void take(std::span<Number> numbers);

  /// Reads a length and that many bytes.
  std::string takeText();

  /// Reads a count of elements.
  /// @throws ArchiveError when the remaining bytes cannot hold so many
  TKM_PERSISTENCEARCHIVER_API std::size_t takeCount(std::size_t leastElementSize);

  /// Refuses a count that was just read if the remaining bytes cannot hold so many objects of the
  /// frame's class.
  void checkCount(std::size_t count) const;

  /// Enters a frame; its class hash comes next.
  void enterFrame();

  /// Leaves the frame that was entered last, and skips what remains of it.
  /// @param end  frameEnd()
  void leaveFrame(std::size_t end);

  /// The position at which the frame, or the body, ends.
  std::size_t frameEnd() const noexcept { return position() + remaining(); }

  /// The class hash of the frame that was entered last.
  unsigned int frameClass() const { return m_frames.back().classHash; }

  /// The number of frames that were entered and not left.
  std::size_t depth() const noexcept { return m_frames.size(); }

private:
  struct Frame {
    unsigned int classHash;
    const std::byte* outerEnd; ///< of what the frame is in
  };

  const std::byte* takeBytes(std::size_t count);
  template <ArchivedNumber Number>
  Number load(const std::byte* place) const;
  [[noreturn]] TKM_PERSISTENCEARCHIVER_API void refuseToTake(std::size_t count) const;
  [[noreturn]] TKM_PERSISTENCEARCHIVER_API void refuseBool(const std::byte* place) const;
  void requireUsed() const;
  void checkHeader() const;
  void checkChecksum() const;
  std::size_t tablePosition() const;

  const std::byte* m_position = nullptr;
  const std::byte* m_end = nullptr;     ///< of the innermost frame, or of the body
  std::span<const std::byte> m_archive; ///< empty in an unused reader
  std::vector<Frame> m_frames;          ///< the open ones, the innermost last
};

inline const std::byte* ArchiveReader::takeBytes(std::size_t count)
{
  if (remaining() < count)
    refuseToTake(count);
  return std::exchange(m_position, m_position + count);
}

template <ArchivedNumber Number>
inline Number ArchiveReader::load(const std::byte* place) const
{
  if constexpr (std::same_as<Number, bool>) {
    if (*place > std::byte{1})
      refuseBool(place);
    return *place == std::byte{1};
  } else if constexpr (std::same_as<Number, double>) {
    return std::bit_cast<double>(loadLittleEndian<std::uint64_t>(place));
  } else {
    return loadLittleEndian<Number>(place);
  }
}

template <ArchivedNumber Number>
inline Number ArchiveReader::take()
{
  return load<Number>(takeBytes(sizeof(Number)));
}

template <ArchivedNumber Number>
inline void ArchiveReader::take(std::span<Number> numbers)
{
  const auto* place = takeBytes(numbers.size_bytes());
  for (auto& number : numbers) {
    number = load<Number>(place);
    place += sizeof number;
  }
}

}
