// SPDX-License-Identifier: MIT
// Writes the binary seeds into a corpus folder: make-seeds fuzz/corpus

#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Project/ProjectFile.h"
#include "Support/FuzzedClasses.h"
#include "Support/RawArchive.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

using Folder = std::filesystem::path;

void writeFile(const Folder& file, std::span<const std::byte> bytes)
{
  std::ofstream stream(file, std::ios::binary);
  for (const auto byte : bytes)
    stream.put(std::to_integer<char>(byte));
  if (!stream.flush())
    throw std::runtime_error(file.string() + ": cannot be written");
}

/// Writes the archive, and its body, from which a fuzzer makes an archive again.
template <class Value>
void writeArchive(const Folder& folder, const std::string& name, const Value& value)
{
  PersistenceArchiver archive;
  archive << value;
  const auto bytes = archive.finish();
  writeFile(folder / (name + ".archive"), bytes);
  writeFile(folder / (name + ".body"), RawArchive::bodyOf(bytes));
}

template <class T>
TKGroup<T> groupOf(const std::string& name, std::size_t memberCount)
{
  TKGroup<T> group(name);
  group.addGroupMembersAtIndex(std::vector<T>(memberCount), 0);
  return group;
}

template <class T>
void writeGroups(const Folder& folder, const std::string& kind)
{
  using Group = TKGroup<T>;
  writeArchive(folder, kind + "-none", std::vector<Group>());
  writeArchive(folder, kind + "-one", groupOf<T>("One", 1));
  writeArchive(folder, kind + "-some", std::vector{groupOf<T>("", 0), groupOf<T>("Größe", 3)});

  const auto shared = std::make_shared<Group>(groupOf<T>("Shared", 2));
  writeArchive(folder, kind + "-shared", std::vector{shared, std::shared_ptr<Group>(), shared});
  writeArchive(folder, kind + "-as-names",
               std::vector<std::shared_ptr<NameInterface>>{
                   shared, std::make_shared<NameInterface>("Name"), shared});
}

Box boxOfDepth(int depth)
{
  Box box{"box", {}, {true, false, true}};
  if (depth > 0)
    box.parts = {boxOfDepth(depth - 1), Box()};
  return box;
}

void writeOthers(const Folder& folder)
{
  writeArchive(folder, "box", boxOfDepth(3));

  const auto node = std::make_shared<Node>();
  const auto other = std::make_shared<Node>();
  node->weight = -0.5;
  node->neighbours = {other, node, nullptr};
  other->neighbours = {node};
  writeArchive(folder, "circle", node);
  Node::takeApart();

  writeArchive(folder, "texts", std::vector<std::vector<std::string>>{{"one", ""}, {}, {"two"}});
  writeArchive(folder, "numbers",
               std::vector{0.0, -0.0, std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()});
}

void writeProject(const Folder& folder,
                  const std::string& name,
                  PointCollections::PointDocument& document)
{
  constexpr std::size_t frameSize = 8;
  const auto bytes = PointCollections::saveProject(document);
  writeFile(folder / (name + ".tkpc"), bytes);
  writeFile(folder / (name + ".content"), RawArchive::bodyOf(bytes).subspan(frameSize));
}

void writeProjects(const Folder& folder)
{
  using namespace PointCollections;
  writeProject(folder, "empty", *PointDocument::create());

  const auto document = PointDocument::create(
      {{.id = GUIdentifier(), .name = "Berlin", .points = {{1, 2, 3}, {-0.0, 1e308, 5e-324}}},
       {.id = GUIdentifier(), .name = "São Tomé", .points = {}},
       {.id = GUIdentifier(), .name = "Lima", .points = {{4, 5, 6}}}});
  writeProject(folder, "without-groups", *document);

  TKGroup<GUIdentifier> group("Europe");
  group.addGroupMember(document->order().front());
  document->setGroups({group, TKGroup<GUIdentifier>("")});
  document->setExpandedGroups({group.getId()});
  writeProject(folder, "with-groups", *document);
}

void writeAll(const Folder& corpus)
{
  writeGroups<Identifier>(corpus / "ArchiveFuzzer", "id");
  writeGroups<GUIdentifier>(corpus / "ArchiveFuzzer", "guid");
  writeOthers(corpus / "ArchiveFuzzer");
  writeProjects(corpus / "ProjectFuzzer");
}

}
}

int main(int argc, char** argv)
{
  if (argc != 2) {
    std::cerr << "usage: make-seeds FOLDER" << std::endl;
    return EXIT_FAILURE;
  }
  try {
    Tarvik::writeAll(argv[1]);
  } catch (const std::exception& error) {
    std::cerr << "make-seeds: " << error.what() << std::endl;
    return EXIT_FAILURE;
  }
}
