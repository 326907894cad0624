// SPDX-License-Identifier: MIT
#include "PointCollections/Project/ProjectFile.h"

#include "GeneralServices/StringUtility.h"
#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/ClassRegistration.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// A document as it is saved in an archive.
struct PointProject {
  std::shared_ptr<PointDocument> document; ///< null until it is loaded

  static void serialization_register(void* out);
};

/// What is wrong with the bytes of a project is told in English, as by the archive itself: it helps
/// those who repair files. Only the sentences around it are in the user's language.
/// @param position  of what is wrong in the archive
[[noreturn]] void refuse(std::uint64_t position, const std::string& message)
{
  throw ArchiveError(static_cast<std::size_t>(position), message);
}

template <class Id>
void checkId(const Id& id, const std::string& owner, std::uint64_t position)
{
  if (!id.isValid())
    refuse(position, "expected the id of " + owner + ", found the invalid one");
}

void checkText(const std::string& name, const std::string& owner, std::uint64_t position)
{
  if (Utf8::findInvalid(name) != std::string_view::npos || name.find('\0') != std::string::npos)
    refuse(position,
           "expected the name of " + owner + " in UTF-8 without NUL, found " + displayName(name));
}

bool isFinite(const Point& point)
{
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

/// Also used for saving: a file that cannot be loaded must not replace one that can.
/// @throws ArchiveError if the element is invalid in itself; Interrupted
void check(const PointCollection& collection, std::uint64_t position)
{
  checkInterruption();
  checkId(collection.id, "an element", position);
  if (collection.name.empty())
    refuse(position, "expected the name of an element, found an empty one");
  checkText(collection.name, "an element", position);
  if (!std::ranges::all_of(collection.points, isFinite))
    refuse(position,
           "expected finite coordinates, found others in " + displayName(collection.name));
}

/// Checks groups one after the other, for saving too.
class GroupChecker {
public:
  /// @throws ArchiveError if the group is invalid, or has the id of an earlier one
  void check(const TKGroup<GUIdentifier>& group, std::uint64_t position)
  {
    checkId(group.getId(), "a group", position);
    if (!m_ids.insert(group.getId()).second)
      refuse(position,
             "expected each id once, found a group with " + group.getId().toString() + " again");
    checkText(group.getName(), "a group", position);
  }

private:
  std::unordered_set<Identifier> m_ids;
};

/// @param document  has an element with the same id or name
[[noreturn]] void refuseRepeated(const PointDocument& document,
                                 const PointCollection& collection,
                                 std::uint64_t position)
{
  if (document.find(collection.id) != nullptr)
    refuse(position,
           "expected each id once, found an element with " + collection.id.toString() + " again");
  refuse(position,
         "expected each name once, found a second element " + displayName(collection.name));
}

void saveCount(PersistenceArchiver& archive, std::size_t count)
{
  archive << static_cast<std::uint32_t>(count); // an archive cannot hold more than that
}

std::uint32_t loadCount(PersistenceArchiver& archive)
{
  std::uint32_t count = 0;
  archive >> count;
  archive.check_container_size(count);
  return count;
}

void saveCollection(PersistenceArchiver& archive, const PointCollection& collection)
{
  const auto& [high, low] = collection.id.bits();
  archive << std::array{high, low} << collection.name;
  saveCount(archive, collection.points.size());
  for (const auto& [x, y, z] : collection.points)
    archive << std::array{x, y, z};
}

PointCollection loadCollection(PersistenceArchiver& archive)
{
  std::array<std::uint64_t, 2> bits{};
  std::string name;
  archive >> bits >> name;
  std::vector<Point> points(loadCount(archive));
  std::array<double, 3> place{};
  for (Point& point : points) {
    archive >> place;
    point = {place[0], place[1], place[2]};
  }
  return {GUIdentifier({bits[0], bits[1]}), std::move(name), std::move(points)};
}

void save(PersistenceArchiver& archive, const PointProject& project, unsigned int /*version*/)
{
  auto& document = *project.document;
  saveCount(archive, document.order().size());
  for (const auto& id : document.order()) {
    const auto& collection = *document.find(id);
    check(collection, archive.tellp());
    saveCollection(archive, collection);
  }
  saveCount(archive, document.getGroups().size());
  GroupChecker checker;
  for (const auto& group : document.getGroups()) {
    checker.check(group, archive.tellp());
    archive << group;
  }
  for (const auto& group : document.getGroups())
    archive << std::uint8_t{document.expandedGroups().contains(group.getId())};
}

std::shared_ptr<PointDocument> loadCollections(PersistenceArchiver& archive)
{
  std::vector<PointCollection> collections;
  std::vector<std::uint64_t> positions;
  for (auto count = loadCount(archive); count > 0; --count) {
    positions.push_back(archive.tellg());
    check(collections.emplace_back(loadCollection(archive)), positions.back());
  }
  std::vector<PointDocument::Repeated> repeated;
  auto document = PointDocument::create(std::move(collections), &repeated);
  if (!repeated.empty())
    refuseRepeated(*document, repeated.front().collection, positions[repeated.front().index]);
  return document;
}

std::vector<TKGroup<GUIdentifier>> loadGroups(PersistenceArchiver& archive)
{
  std::vector<TKGroup<GUIdentifier>> groups(loadCount(archive));
  GroupChecker checker;
  for (auto& group : groups) {
    const auto position = archive.tellg();
    archive >> group;
    checker.check(group, position);
  }
  return groups;
}

std::unordered_set<Identifier> loadExpandedGroups(PersistenceArchiver& archive,
                                                  const std::vector<TKGroup<GUIdentifier>>& groups)
{
  std::unordered_set<Identifier> ids;
  for (const auto& group : groups) {
    const auto position = archive.tellg();
    std::uint8_t isExpanded = 0;
    archive >> isExpanded;
    if (isExpanded > 1)
      refuse(position, fmt::format("expected 1 for an expanded group, or 0, found {}", isExpanded));
    if (isExpanded == 1)
      ids.insert(group.getId());
  }
  return ids;
}

void load(PersistenceArchiver& archive, PointProject& project, unsigned int version)
{
  constexpr unsigned int firstWithExpandedGroups = 2;
  auto document = loadCollections(archive);
  document->setGroups(loadGroups(archive));
  if (version >= firstWithExpandedGroups)
    document->setExpandedGroups(loadExpandedGroups(archive, document->getGroups()));
  if (!archive.isAtEnd())
    refuse(archive.tellg(), "expected the end of the project, found more; the archive is damaged");
  project.document = std::move(document);
}

const BaseClassRegister* registeredProject()
{
  constexpr unsigned int version = 2;
  constexpr unsigned int leastSize = 8; // two empty lists
  static const auto* const registered =
      registerClass<PointProject, load, save>("PointProject", version, leastSize);
  return registered;
}

void PointProject::serialization_register(void* out)
{
  if (const auto* const registered = registeredProject())
    *static_cast<BaseClassRegister*>(out) = *registered;
}

/// The class must be registered before the first archive is opened.
[[maybe_unused]] const auto* const projectIsRegistered = registeredProject();

/// The message of the error, safe to print: it may quote the file.
std::string messageOf(const ArchiveError& error)
{
  constexpr std::string_view start = "archive, ";
  constexpr std::size_t longest = 500;
  std::string_view text = error.what();
  if (text.starts_with(start))
    text.remove_prefix(start.size());
  return printable(abbreviated(text, longest));
}

std::shared_ptr<PointDocument> documentIn(std::span<const std::byte> bytes)
{
  PersistenceArchiver archive(bytes);
  PointProject project;
  archive >> project;
  if (!archive.isAtEnd())
    refuse(archive.tellg(),
           "expected a project and nothing else, found more; the archive is damaged");
  return project.document;
}

}

bool isProjectName(const std::filesystem::path& file)
{
  return StringUtility::toLower(Utf8::fromPath(file.extension())) == projectExtension;
}

std::vector<std::byte> saveProject(PointDocument& document)
{
  try {
    PersistenceArchiver archive;
    archive << PointProject{document.shared_from_this()};
    const auto bytes = archive.finish();
    return {bytes.begin(), bytes.end()};
  } catch (const ArchiveError& error) {
    throw UserError(translated("the document cannot be saved: {}", messageOf(error)));
  }
}

void checkProjectStart(std::span<const std::byte> start,
                       std::uint64_t size,
                       const std::string& name)
{
  try {
    PersistenceArchiver::checkStart(start, size);
  } catch (const ArchiveError& error) {
    throw UserError(fmt::format("{}, {}", name, messageOf(error)));
  }
}

std::size_t savedSizeOfElements(const PointDocument& document) noexcept
{
  constexpr std::size_t frames = 1024; // of the archive and the project, and the class table
  constexpr std::size_t idAndLengths = 24;
  std::size_t size = frames;
  for (const auto& [id, name, points] : document.collections())
    size += idAndLengths + name.size() + points.size() * sizeof(Point);
  return size;
}

std::size_t savedSizeOfGroups(PointDocument& document) noexcept
{
  constexpr std::size_t framesAndId = 128;
  std::size_t size = 0;
  for (const auto& group : document.getGroups())
    size += framesAndId + group.getName().size() +
            group.getGroupMembers().size() * sizeof(GUIdentifier);
  return size;
}

std::shared_ptr<PointDocument> loadProject(std::span<const std::byte> bytes,
                                           const std::string& name)
{
  try {
    return documentIn(bytes);
  } catch (const ArchiveError& error) {
    throw UserError(fmt::format("{}, {}", name, messageOf(error)));
  } catch (const std::bad_alloc&) {
    throw UserError(
        fmt::format("{}: {}", name, translated("there is not enough memory for this project")));
  }
}

}
