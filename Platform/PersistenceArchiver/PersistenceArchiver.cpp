// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ArchiveError.h"

#include <algorithm>
#include <limits>
#include <map>
#include <mutex>
#include <stdexcept>
#include <utility>

namespace Tarvik {

namespace {

struct RegisteredClass {
  std::string name;
  unsigned int version;
  BaseClassRegister record;
};

/// The classes of the program by class hash. A map, since its entries never move.
struct ClassRegistry {
  std::mutex mutex;
  std::map<unsigned int, RegisteredClass> classes;
};

/// Built when the library is loaded, and gone after everything that was loaded later.
ClassRegistry registry;

}

BaseClassRegister* PersistenceArchiver::registerFactory(const std::string& name,
                                                        const BaseClassRegister& record,
                                                        unsigned int version)
{
  const auto hash = getHashForName(name);
  if (hash == BaseClassRegister::unknownClassHash)
    return nullptr;

  RegisteredClass added{name, version, record};
  added.record.classHash = hash; // now, since a registered record may be read without the lock

  auto& [mutex, classes] = registry;
  const std::lock_guard lock(mutex);
  auto& entry = classes.try_emplace(hash, std::move(added)).first->second;
  if (entry.name != name || entry.version != version)
    return nullptr;
  return &entry.record;
}

unsigned int PersistenceArchiver::getHashForName(const std::string& name)
{
  // FNV-1a: short, well known, and spreads names that differ in one letter
  std::uint32_t hash = 2166136261U;
  for (const char letter : name)
    hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
  return hash;
}

PersistenceArchiver::PersistenceArchiver() : m_reads(false) {}

PersistenceArchiver::PersistenceArchiver(std::span<const std::byte> bytes)
    : m_reads(true), m_source(bytes)
{}

PersistenceArchiver::~PersistenceArchiver() = default;

std::span<const std::byte> PersistenceArchiver::bytes() const noexcept
{
  return m_written;
}

std::uint64_t PersistenceArchiver::tellp() const noexcept
{
  return m_written.size();
}

PersistenceArchiver& PersistenceArchiver::operator<<(const unsigned int& value)
{
  write<std::uint32_t>(value);
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator<<(const std::uint64_t& value)
{
  write(value);
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator<<(const std::string& text)
{
  if (text.size() > std::numeric_limits<std::uint32_t>::max())
    throw ArchiveError(m_written.size(),
                       "a text of " + std::to_string(text.size()) + " bytes is too long; at most " +
                           std::to_string(std::numeric_limits<std::uint32_t>::max()) +
                           " can be written");
  write(static_cast<std::uint32_t>(text.size()));
  const auto bytes = std::as_bytes(std::span(text));
  m_written.insert(m_written.end(), bytes.begin(), bytes.end());
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator>>(unsigned int& value)
{
  value = read<std::uint32_t>();
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator>>(std::uint64_t& value)
{
  value = read<std::uint64_t>();
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator>>(std::string& text)
{
  const auto bytes = take(read<std::uint32_t>());
  text.resize(bytes.size());
  std::ranges::transform(bytes, text.begin(),
                         [](std::byte byte) { return static_cast<char>(byte); });
  return *this;
}

template <class Number>
void PersistenceArchiver::write(Number value)
{
  checkDirection(false);
  for (std::size_t i = 0; i < sizeof value; ++i)
    m_written.push_back(static_cast<std::byte>(value >> (8 * i)));
}

template <class Number>
Number PersistenceArchiver::read()
{
  Number value = 0;
  const auto bytes = take(sizeof value);
  for (std::size_t i = 0; i < sizeof value; ++i)
    value |= static_cast<Number>(bytes[i]) << (8 * i);
  return value;
}

std::span<const std::byte> PersistenceArchiver::take(std::size_t count)
{
  checkDirection(true);
  const auto left = m_source.size() - m_readPosition;
  if (count > left)
    throw ArchiveError(m_readPosition, "expected " + std::to_string(count) + " more bytes, found " +
                                           std::to_string(left) +
                                           " before the end; the archive is cut off or damaged");
  const auto bytes = m_source.subspan(m_readPosition, count);
  m_readPosition += count;
  return bytes;
}

void PersistenceArchiver::checkDirection(bool reads) const
{
  if (reads != m_reads)
    throw std::logic_error(m_reads ? "PersistenceArchiver: this archive was opened for reading"
                                   : "PersistenceArchiver: this archive was opened for writing");
}

}
