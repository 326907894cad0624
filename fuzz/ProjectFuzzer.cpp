// SPDX-License-Identifier: MIT
// Loads any bytes as a project file. If they load, the document must survive saving and loading. If
// not, the error must be a UserError that is safe to print.

#include "PersistenceArchiver/LittleEndian.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/UserError.h"
#include "Support/Documents.h"
#include "Support/RawArchive.h"
#include "Support/Require.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

using RawArchive::Bytes;

void checkProject(std::span<const std::byte> bytes)
{
  std::shared_ptr<PointDocument> document;
  try {
    document = loadProject(bytes, "any.tkpc");
  } catch (const UserError& error) {
    requireShowable(error.what());
    return;
  }
  requireWhole(*document);
  requireSavable(*document);
}

/// An archive with one project that has these bytes as its content.
Bytes projectAround(std::span<const std::byte> content)
{
  constexpr std::size_t word = 4;
  static const std::vector<std::string> classes = {"PointProject", "TKGUIdGroup", "NameInterface",
                                                   "Identifier", "GUIdentifier"};
  Bytes body(2 * word);
  storeLittleEndian(body.data(), static_cast<std::uint32_t>(content.size() + word));
  storeLittleEndian(body.data() + word, PersistenceArchiver::getHashForName(classes.front()));
  body.insert(body.end(), content.begin(), content.end());
  return RawArchive::around(body, classes);
}

void checkAny(std::span<const std::byte> bytes)
{
  checkProject(bytes);
  checkProject(RawArchive::looksLikeOne(bytes) ? RawArchive::repaired(bytes)
                                               : projectAround(bytes));
}

}
}

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  Tarvik::PointCollections::checkAny(std::as_bytes(std::span(data, size)));
  return 0;
}
