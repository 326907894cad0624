// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Platform/Support/Bytes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// Archives for tests: put together and taken apart by the description of the format, without help
/// from the code under test.
namespace Tarvik {

/// The position of the first value of an archive.
inline constexpr std::size_t bodyStart = 20;

inline std::uint32_t wordAt(std::span<const std::byte> bytes, std::size_t place)
{
  std::uint32_t word = 0;
  for (std::size_t i = 4; i-- > 0;)
    word = word << 8U | std::to_integer<std::uint32_t>(bytes[place + i]);
  return word;
}

inline void setWordAt(Bytes& bytes, std::size_t place, std::uint32_t word)
{
  for (std::size_t i = 0; i < 4; ++i)
    bytes[place + i] = static_cast<std::byte>(word >> 8U * i);
}

inline void appendWord(Bytes& bytes, std::uint32_t word)
{
  bytes.resize(bytes.size() + 4);
  setWordAt(bytes, bytes.size() - 4, word);
}

inline void appendText(Bytes& bytes, std::string_view text)
{
  appendWord(bytes, static_cast<std::uint32_t>(text.size()));
  for (const char letter : text)
    bytes.push_back(static_cast<std::byte>(letter));
}

/// The four bytes of a number: "04 03 02 01".
inline std::string wordText(std::uint32_t word)
{
  Bytes bytes;
  appendWord(bytes, word);
  return hex(bytes);
}

/// The class hash as it is in an archive.
inline std::string hashText(const std::string& className)
{
  return wordText(PersistenceArchiver::getHashForName(className));
}

/// The checksum, bit by bit.
inline std::uint32_t bitwiseCrc32c(std::span<const std::byte> bytes)
{
  std::uint32_t remainder = 0xFFFFFFFFU;
  for (const std::byte byte : bytes) {
    remainder ^= std::to_integer<std::uint32_t>(byte);
    for (int bit = 0; bit < 8; ++bit)
      remainder = (remainder & 1U) != 0 ? remainder >> 1U ^ 0x82F63B78U : remainder >> 1U;
  }
  return ~remainder;
}

inline void setChecksum(Bytes& archive)
{
  const auto place = archive.size() - 4;
  setWordAt(archive, place, bitwiseCrc32c(std::span(archive).first(place)));
}

/// One entry of the class table.
struct TableEntry {
  std::string name;
  unsigned int version = 1;
  std::optional<unsigned int> hash = std::nullopt; ///< when it is not that of the name
};

/// An archive around these bytes.
inline Bytes archiveAround(const Bytes& body, const std::vector<TableEntry>& classes = {})
{
  auto archive = fromHex("89 54 4b 4d 0d 0a 1a 0a 01 00 00 00 00 00 00 00 00 00 00 00");
  archive.insert(archive.end(), body.begin(), body.end());
  setWordAt(archive, 16, static_cast<std::uint32_t>(archive.size()));
  appendWord(archive, static_cast<std::uint32_t>(classes.size()));
  for (const auto& [name, version, hash] : classes) {
    appendWord(archive, hash.value_or(PersistenceArchiver::getHashForName(name)));
    appendWord(archive, version);
    appendText(archive, name);
  }
  appendWord(archive, 0);
  setWordAt(archive, 12, static_cast<std::uint32_t>(archive.size()));
  setChecksum(archive);
  return archive;
}

inline Bytes archiveAround(std::string_view body, const std::vector<TableEntry>& classes = {})
{
  return archiveAround(fromHex(body), classes);
}

/// The whole archive with these values.
template <class... Values>
Bytes archived(const Values&... values)
{
  PersistenceArchiver archive;
  static_cast<void>((archive << ... << values));
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

/// What was written between the header and the class table.
inline std::string bodyOf(PersistenceArchiver& archive)
{
  const auto bytes = archive.finish();
  return hex(bytes.subspan(bodyStart, wordAt(bytes, 16) - bodyStart));
}

/// The bytes of the values alone.
template <class... Values>
std::string written(const Values&... values)
{
  PersistenceArchiver archive;
  static_cast<void>((archive << ... << values));
  return bodyOf(archive);
}

/// The only value of an archive.
template <class Value>
Value loadedFrom(std::span<const std::byte> archive)
{
  PersistenceArchiver source(archive);
  Value value{};
  source >> value;
  EXPECT_TRUE(source.isAtEnd()) << "something is left after the value";
  return value;
}

/// The text of the ArchiveError that the action ends with.
template <class Action>
std::string refusalOf(Action action)
{
  try {
    action();
  } catch (const ArchiveError& error) {
    const auto start = "archive, byte " + std::to_string(error.position()) + ": ";
    EXPECT_EQ(std::string(error.what()).substr(0, start.size()), start);
    return error.what();
  }
  return "nothing was refused";
}

/// The text of the ArchiveError that opening the archive ends with.
inline std::string refusalToOpen(std::span<const std::byte> archive)
{
  return refusalOf([&] { const PersistenceArchiver source(archive); });
}

/// The text of the complaint about a mistake of the program.
template <class Action>
std::string complaintOf(Action action)
{
  try {
    action();
  } catch (const std::logic_error& error) {
    const std::string start = "PersistenceArchiver: ";
    const std::string text = error.what();
    EXPECT_EQ(text.substr(0, start.size()), start);
    return text.substr(start.size());
  }
  return "no complaint";
}

}
