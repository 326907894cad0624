// SPDX-License-Identifier: MIT
#include "PointCollections/Project/ProjectFile.h"

#include "GeneralServices/StringUtility.h"
#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/ClassRegistration.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <new>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// A document as it is saved in an archive.
struct PointProject {
  std::vector<PointCollection> collections;
  std::vector<TKGroup<GUIdentifier>> groups;

  static void serialization_register(void* out);
};

/// Checks the elements and groups of a project one after the other. Also used for saving: a file
/// that cannot be loaded must not replace one that can.
class ProjectChecker {
public:
  /// @param position  of the element in the archive
  /// @throws ArchiveError if it is invalid, or has the id or name of an earlier one
  void check(const PointCollection& collection, std::uint64_t position)
  {
    m_position = position;
    checkId(collection.id, m_ids, "an element");
    if (collection.name.empty())
      refuse("expected the name of an element, found an empty one");
    checkText(collection.name, "an element");
    if (!m_names.insert(collection.name).second)
      refuse("expected each name once, found a second element " + displayName(collection.name));
    if (!std::ranges::all_of(collection.points, &ProjectChecker::isFinite))
      refuse("expected finite coordinates, found others in " + displayName(collection.name));
  }

  /// @param position  of the group in the archive
  /// @throws ArchiveError if it is invalid, or has the id of an earlier one
  void check(const TKGroup<GUIdentifier>& group, std::uint64_t position)
  {
    m_position = position;
    checkId(group.getId(), m_groupIds, "a group");
    checkText(group.getName(), "a group");
  }

private:
  static bool isFinite(const Point& point)
  {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
  }

  template <class Id>
  void checkId(const Id& id, std::unordered_set<Id>& known, const std::string& owner)
  {
    if (!id.isValid())
      refuse("expected the id of " + owner + ", found the invalid one");
    if (!known.insert(id).second)
      refuse("expected each id once, found " + owner + " with " + id.toString() + " again");
  }

  void checkText(const std::string& name, const std::string& owner) const
  {
    if (Utf8::findInvalid(name) != std::string_view::npos || name.find('\0') != std::string::npos)
      refuse("expected the name of " + owner + " in UTF-8 without NUL, found " + displayName(name));
  }

  [[noreturn]] void refuse(const std::string& message) const
  {
    throw ArchiveError(static_cast<std::size_t>(m_position), message);
  }

  std::uint64_t m_position = 0;
  std::unordered_set<GUIdentifier> m_ids;
  std::unordered_set<std::string> m_names;
  std::unordered_set<Identifier> m_groupIds;
};

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
  ProjectChecker checker;
  saveCount(archive, project.collections.size());
  for (const auto& collection : project.collections) {
    checker.check(collection, archive.tellp());
    saveCollection(archive, collection);
  }
  saveCount(archive, project.groups.size());
  for (const auto& group : project.groups) {
    checker.check(group, archive.tellp());
    archive << group;
  }
}

void load(PersistenceArchiver& archive, PointProject& project, unsigned int /*version*/)
{
  ProjectChecker checker;
  for (auto count = loadCount(archive); count > 0; --count) {
    const auto position = archive.tellg();
    checker.check(project.collections.emplace_back(loadCollection(archive)), position);
  }
  project.groups.resize(loadCount(archive));
  for (auto& group : project.groups) {
    const auto position = archive.tellg();
    archive >> group;
    checker.check(group, position);
  }
  if (!archive.isAtEnd())
    throw ArchiveError(static_cast<std::size_t>(archive.tellg()),
                       "expected the end of the project, found more; the archive is damaged");
}

const BaseClassRegister* registeredRecord()
{
  constexpr unsigned int version = 1;
  constexpr unsigned int leastSize = 8; // two empty lists
  static const auto* const registered =
      registerClass<PointProject, load, save>("PointProject", version, leastSize);
  return registered;
}

void PointProject::serialization_register(void* out)
{
  if (const auto* const registered = registeredRecord())
    *static_cast<BaseClassRegister*>(out) = *registered;
}

/// The class must be registered before the first archive is opened.
[[maybe_unused]] const auto* const registeredAtStart = registeredRecord();

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

PointProject projectOf(PointDocument& document)
{
  PointProject project;
  project.collections.reserve(document.order().size());
  for (const auto& id : document.order())
    project.collections.push_back(*document.find(id));
  project.groups = document.getGroups();
  return project;
}

PointProject projectIn(std::span<const std::byte> bytes)
{
  PersistenceArchiver archive(bytes);
  PointProject project;
  archive >> project;
  if (!archive.isAtEnd())
    throw ArchiveError(static_cast<std::size_t>(archive.tellg()),
                       "expected a project and nothing else, found more; the archive is damaged");
  return project;
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
    archive << projectOf(document);
    const auto bytes = archive.finish();
    return {bytes.begin(), bytes.end()};
  } catch (const ArchiveError& error) {
    throw UserError("the document cannot be saved: " + messageOf(error));
  } catch (const std::bad_alloc&) {
    throw UserError("the document cannot be saved: there is not enough memory for a copy of it");
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

std::shared_ptr<PointDocument> loadProject(std::span<const std::byte> bytes,
                                           const std::string& name)
{
  try {
    auto project = projectIn(bytes);
    auto document = PointDocument::create(std::move(project.collections));
    document->setGroups(project.groups);
    return document;
  } catch (const ArchiveError& error) {
    throw UserError(fmt::format("{}, {}", name, messageOf(error)));
  } catch (const std::bad_alloc&) {
    throw UserError(fmt::format("{}: there is not enough memory for this project", name));
  }
}

}
