// SPDX-License-Identifier: MIT
#include "Support/ArchiveMutation.h"

#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/LittleEndian.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Tarvik::ArchiveMutation {
namespace {

using Random = std::mt19937_64;
using ArchiveFormat::checksumSize;

constexpr std::size_t word = 4;

/// @param end  greater than 0
std::size_t below(std::size_t end, Random& random)
{
  return static_cast<std::size_t>(random() % end);
}

std::uint32_t wordAt(const Bytes& bytes, std::size_t place)
{
  return loadLittleEndian<std::uint32_t>(bytes.data() + place);
}

/// A place with a word after it, before the checksum.
std::size_t placeOfWord(const Bytes& bytes, Random& random)
{
  return below(bytes.size() - checksumSize - word + 1, random);
}

/// A number at the edge of what may be right there.
std::uint32_t edge(const Bytes& bytes, std::uint32_t present, Random& random)
{
  const auto size = static_cast<std::uint32_t>(bytes.size());
  const std::array<std::uint32_t, 14> edges = {
      0,        1,        2,           present + 1, present - 1, present * 2, size,
      size - 4, size + 1, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0xFFFFFFFEU, 0x01000000U};
  return edges[below(edges.size(), random)];
}

void changeNumber(Bytes& bytes, Random& random)
{
  const auto place = placeOfWord(bytes, random);
  storeLittleEndian(bytes.data() + place, edge(bytes, wordAt(bytes, place), random));
}

void copyNumber(Bytes& bytes, Random& random)
{
  const auto from = wordAt(bytes, placeOfWord(bytes, random));
  storeLittleEndian(bytes.data() + placeOfWord(bytes, random), from);
}

void changeByte(Bytes& bytes, Random& random)
{
  bytes[below(bytes.size() - checksumSize, random)] = static_cast<std::byte>(random());
}

/// Moves what comes after the place, as a frame with more or less content would.
void resize(Bytes& bytes, Random& random)
{
  const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(placeOfWord(bytes, random));
  if (random() % 2 == 0)
    bytes.insert(place, word * (1 + below(3, random)), std::byte(random() % 3));
  else if (bytes.size() > 64)
    bytes.erase(place, place + word);
}

void repeatPart(Bytes& bytes, const Bytes& source, Random& random)
{
  constexpr std::size_t longest = 64;
  const auto from = placeOfWord(source, random);
  const auto length = std::min(1 + below(longest, random), source.size() - from);
  const Bytes part(source.begin() + static_cast<std::ptrdiff_t>(from),
                   source.begin() + static_cast<std::ptrdiff_t>(from + length));
  bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(placeOfWord(bytes, random)),
               part.begin(), part.end());
}

void change(Bytes& bytes, const Bytes& other, Random& random)
{
  switch (random() % 7) {
  case 0:
  case 1:
    return changeNumber(bytes, random);
  case 2:
    return copyNumber(bytes, random);
  case 3:
    return changeByte(bytes, random);
  case 4:
    return resize(bytes, random);
  case 5:
    return repeatPart(bytes, Bytes(bytes), random);
  default:
    return repeatPart(bytes, other, random);
  }
}

/// Lets the header point to the class table again when bytes were inserted before it.
void moveTable(Bytes& bytes, std::size_t sizeBefore)
{
  using ArchiveFormat::tablePlace;
  const auto grown = static_cast<std::uint32_t>(bytes.size() - sizeBefore);
  storeLittleEndian(bytes.data() + tablePlace, wordAt(bytes, tablePlace) + grown);
}

}

Bytes mutated(const Bytes& archive, const Bytes& other, Random& random)
{
  auto bytes = archive;
  for (auto changes = 1 + below(4, random); changes > 0; --changes)
    change(bytes, other, random);
  if (random() % 4 != 0)
    moveTable(bytes, archive.size());
  std::copy_n(archive.begin(), ArchiveFormat::magic.size(), bytes.begin());
  return RawArchive::repaired(bytes);
}

}
