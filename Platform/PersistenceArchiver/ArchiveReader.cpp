// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ArchiveReader.h"

#include "PersistenceArchiver/ArchiveComplaints.h"
#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/ClassRegistry.h"
#include "PersistenceArchiver/Crc32c.h"

#include <algorithm>

namespace Tarvik {

using namespace ArchiveFormat;
using namespace ArchiveComplaints;

ArchiveReader::ArchiveReader(std::span<const std::byte> archive) : m_archive(archive)
{
  checkHeader();
  m_position = m_archive.data() + headerSize;
  m_end = m_archive.data() + tablePosition();
}

void ArchiveReader::checkStart(std::span<const std::byte> start, std::uint64_t size)
{
  if (size < leastArchiveSize || size > greatestArchiveSize)
    refuse(0,
           "an archive of " + std::to_string(leastArchiveSize) + " to " +
               bytesText(greatestArchiveSize),
           bytesText(size), "it is no archive, or cut off");
  if (start.size() < headerSize)
    complain("the first " + bytesText(headerSize) + " of an archive are needed to check its start");
  if (!std::ranges::equal(start.first(magic.size()), std::as_bytes(std::span(magic))))
    refuse(0, "the first 8 bytes of an archive", "others", "it is no archive");
  const auto wordAt = [start](std::size_t place) {
    return loadLittleEndian<std::uint32_t>(start.data() + place);
  };
  if (const auto found = wordAt(versionPlace); found != version)
    refuse(versionPlace, "format version " + std::to_string(version), std::to_string(found),
           useNewerProgram);
  if (const auto expected = wordAt(sizePlace); expected != size)
    refuse(sizePlace, "an archive of " + bytesText(expected), bytesText(size),
           "it is cut off or damaged");
}

void ArchiveReader::checkHeader() const
{
  const auto size = m_archive.size();
  checkStart(m_archive, size);
  checkChecksum();
  const auto table = tablePosition();
  if (table < headerSize || table > size - checksumSize)
    refuse(tablePlace, "the position of the class table", std::to_string(table), damaged);
}

void ArchiveReader::checkChecksum() const
{
  const auto place = m_archive.size() - checksumSize;
  const auto expected = loadLittleEndian<std::uint32_t>(m_archive.data() + place);
  if (const auto found = crc32c(m_archive.first(place)); found != expected)
    refuse(place, "the checksum " + std::to_string(expected), std::to_string(found), damaged);
}

std::size_t ArchiveReader::tablePosition() const
{
  return loadLittleEndian<std::uint32_t>(m_archive.data() + tablePlace);
}

ClassTable::Records ArchiveReader::readClassTable()
{
  const auto* const begin = m_archive.data();
  m_position = begin + tablePosition();
  m_end = begin + m_archive.size() - checksumSize;
  auto classes = ClassTable::read(*this);

  m_position = begin + headerSize;
  m_end = begin + tablePosition();
  return classes;
}

std::size_t ArchiveReader::position() const noexcept
{
  return static_cast<std::size_t>(m_position - m_archive.data());
}

void ArchiveReader::requireUsed() const
{
  if (m_archive.empty())
    complain("this archive was opened for writing");
}

void ArchiveReader::refuseToTake(std::size_t count) const
{
  requireUsed();
  refuse(position(), bytesText(count) + " more",
         bytesText(remaining()) + " before the end of the " +
             (m_frames.empty() ? "archive" : "object"),
         damaged);
}

void ArchiveReader::refuseBool(const std::byte* place) const
{
  refuse(static_cast<std::size_t>(place - m_archive.data()), "0 or 1",
         std::to_string(std::to_integer<unsigned int>(*place)), damaged);
}

std::string ArchiveReader::takeText()
{
  const auto size = takeCount(1);
  // not a constructor that takes iterators, which would go through every byte twice
  std::string text(size, '\0');
  std::copy_n(takeBytes(size), size, std::as_writable_bytes(std::span(text)).data());
  return text;
}

std::size_t ArchiveReader::takeCount(std::size_t leastElementSize)
{
  const auto place = position();
  const std::size_t count = take<std::uint32_t>();
  if (const auto greatest = remaining() / leastElementSize; count > greatest)
    refuse(place, "a count of at most " + std::to_string(greatest),
           std::to_string(count) + " with " + bytesText(remaining()) + " left", damaged);
  return count;
}

void ArchiveReader::checkCount(std::size_t count) const
{
  requireUsed();
  std::size_t leastSize = 1;
  if (!m_frames.empty())
    if (const auto* const known = ClassRegistry::find(frameClass()))
      leastSize = std::max(1U, known->record.word);
  if (const auto greatest = remaining() / leastSize; count > greatest)
    refuse(position() - wordSize,
           "at most " + std::to_string(greatest) + " elements in the " + bytesText(remaining()) +
               " that follow",
           "a count of " + std::to_string(count), damaged);
}

void ArchiveReader::enterFrame()
{
  const auto place = position();
  const auto length = take<std::uint32_t>();
  if (length < wordSize || length > remaining())
    refuse(place,
           "the length of an object, " + std::to_string(wordSize) + " to " + bytesText(remaining()),
           std::to_string(length), damaged);
  if (m_frames.size() == greatestDepth)
    refuse(place, "objects in objects at most " + std::to_string(greatestDepth) + " deep",
           "one more", damaged);

  m_frames.push_back({loadLittleEndian<std::uint32_t>(m_position), m_end});
  m_end = m_position + length;
}

void ArchiveReader::leaveFrame(std::size_t end)
{
  requireUsed();
  if (m_frames.empty() || end != frameEnd())
    complain("frames are left with their own marker, the last one first");
  m_position = std::exchange(m_end, m_frames.back().outerEnd);
  m_frames.pop_back();
}

}
