// SPDX-License-Identifier: MIT
#include "Support/RawArchive.h"

#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/Crc32c.h"
#include "PersistenceArchiver/LittleEndian.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <algorithm>
#include <cstdint>

namespace Tarvik::RawArchive {

using namespace ArchiveFormat;

bool looksLikeOne(std::span<const std::byte> bytes)
{
  static const auto empty = around({}, {});
  return bytes.size() >= empty.size() &&
         std::ranges::equal(bytes.first(magic.size()), std::span(empty).first(magic.size()));
}

Bytes repaired(std::span<const std::byte> archive)
{
  Bytes bytes(archive.begin(), archive.end());
  const auto checked = std::span(bytes).first(bytes.size() - checksumSize);
  storeLittleEndian(bytes.data() + sizePlace, static_cast<std::uint32_t>(bytes.size()));
  storeLittleEndian(bytes.data() + checked.size(), crc32c(checked));
  return bytes;
}

Bytes around(std::span<const std::byte> body, const std::vector<std::string>& classes)
{
  PersistenceArchiver archive;
  for (const auto& name : classes) {
    BaseClassRegister entry;
    entry.classHash = PersistenceArchiver::getHashForName(name);
    entry.writeVersion = 1;
    archive.classTable().emplace(entry.classHash, entry);
  }
  for (const auto byte : body)
    archive << std::to_integer<std::uint8_t>(byte);
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

std::span<const std::byte> bodyOf(std::span<const std::byte> archive)
{
  const auto end = loadLittleEndian<std::uint32_t>(archive.data() + tablePlace);
  return archive.subspan(headerSize, end - headerSize);
}

}
