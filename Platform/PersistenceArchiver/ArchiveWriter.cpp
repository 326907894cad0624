// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ArchiveWriter.h"

#include "PersistenceArchiver/ArchiveComplaints.h"
#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/Crc32c.h"
#include "PersistenceArchiver/WholeValue.h"

#include <algorithm>

namespace Tarvik {

using namespace ArchiveFormat;
using ArchiveComplaints::bytesText;
using ArchiveComplaints::complain;
using ArchiveComplaints::refuse;

namespace {

constexpr std::size_t firstCapacity = 4096;

// Why writers are closed
constexpr std::string_view isUnused = "this archive was opened for reading";
constexpr std::string_view isFinished = "this archive is finished; clear() begins another one";
constexpr std::string_view hasFailed =
    "writing to this archive has failed; clear() begins another one";

}

ArchiveWriter::ArchiveWriter()
{
  begin();
}

ArchiveWriter::ArchiveWriter(std::string_view closedBecause) : m_closedBecause(closedBecause) {}

ArchiveWriter ArchiveWriter::unused()
{
  return ArchiveWriter(isUnused);
}

void ArchiveWriter::begin()
{
  m_position = m_memory.get();
  m_end = m_position + std::min(m_capacity, m_limit);
  auto* const header = makeRoom(headerSize);
  std::ranges::copy(std::as_bytes(std::span(magic)), header);
  storeLittleEndian(header + versionPlace, version);
}

void ArchiveWriter::clear()
{
  requireUsed();
  m_closedBecause = {};
  m_finished = {};
  m_frameStarts.clear();
  begin();
}

void ArchiveWriter::limitSize(std::size_t bytes)
{
  requireUsed();
  m_limit = bytes;
  if (m_closedBecause.empty())
    m_end = m_memory.get() + std::clamp(m_limit, position(), m_capacity);
}

std::size_t ArchiveWriter::position() const noexcept
{
  return static_cast<std::size_t>(m_position - m_memory.get());
}

void ArchiveWriter::requireOpen() const
{
  if (!m_closedBecause.empty())
    complain(std::string(m_closedBecause));
}

void ArchiveWriter::requireUsed() const
{
  if (m_closedBecause == isUnused)
    complain(std::string(isUnused));
}

void ArchiveWriter::close(std::string_view reason) noexcept
{
  m_closedBecause = reason;
  m_end = m_position;
}

void ArchiveWriter::giveUp() noexcept
{
  if (m_closedBecause.empty())
    close(hasFailed);
}

void ArchiveWriter::grow(std::size_t count)
{
  requireOpen();
  WholeValue growth(*this);

  const auto size = position();
  if (size > m_limit || count > m_limit - size)
    refuse(size, "an archive of at most " + bytesText(m_limit), bytesText(count) + " more to write",
           "save less in one archive");

  const auto capacity = std::min(m_limit, std::max({firstCapacity, 2 * m_capacity, size + count}));
  // NOLINTNEXTLINE(modernize-avoid-c-arrays): a vector would fill the memory with zeros first
  auto memory = std::make_unique_for_overwrite<std::byte[]>(capacity);
  std::copy_n(m_memory.get(), size, memory.get());
  m_memory = std::move(memory);
  m_capacity = capacity;
  m_position = m_memory.get() + size;
  m_end = m_memory.get() + capacity;
  growth.complete();
}

void ArchiveWriter::append(const std::string& text)
{
  appendCount(text.size());
  std::ranges::copy(std::as_bytes(std::span(text)), makeRoom(text.size()));
}

void ArchiveWriter::appendCount(std::size_t count)
{
  if (count > greatestCount) {
    giveUp();
    refuse(position(),
           "at most " + std::to_string(greatestCount) + " elements or bytes in a list or text",
           std::to_string(count));
  }
  append(static_cast<std::uint32_t>(count));
}

void ArchiveWriter::openFrame(std::size_t start, unsigned int classHash)
{
  WholeValue header(*this);
  append(std::uint32_t{0}); // the length, for closeFrame()
  if (start != position())
    complain("a frame starts 4 bytes after the write position");
  if (m_frameStarts.size() == greatestDepth)
    refuse(start, "objects in objects at most " + std::to_string(greatestDepth) + " deep",
           "one more");
  append(classHash);
  m_frameStarts.push_back(start);
  header.complete();
}

void ArchiveWriter::closeFrame(std::size_t start, std::size_t end)
{
  requireOpen();
  if (m_frameStarts.empty() || m_frameStarts.back() != start || end != position())
    complain("frames are closed at the write position, the last one first");
  storeLittleEndian(m_memory.get() + start - wordSize, static_cast<std::uint32_t>(end - start));
  m_frameStarts.pop_back();
}

std::span<const std::byte> ArchiveWriter::finish(ClassTable::Records& classes)
{
  if (!m_finished.empty())
    return m_finished;
  requireOpen();
  if (!m_frameStarts.empty())
    complain("the archive cannot be finished in the middle of an object");

  const auto tablePosition = position();
  ClassTable::write(classes, *this);
  auto* const checksum = makeRoom(checksumSize);

  auto* const archive = m_memory.get();
  storeLittleEndian(archive + sizePlace, static_cast<std::uint32_t>(position()));
  storeLittleEndian(archive + tablePlace, static_cast<std::uint32_t>(tablePosition));
  storeLittleEndian(checksum, crc32c(std::span<const std::byte>(archive, checksum)));

  m_finished = {archive, m_position};
  close(isFinished);
  return m_finished;
}

}
