// SPDX-License-Identifier: MIT
// Arbitrary bytes as an archive: if they load, they can be saved and loaded again with an equal
// result; if not, that is an ArchiveError.

#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Support/FuzzedClasses.h"
#include "Support/RawArchive.h"
#include "Support/Require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <typeinfo>
#include <vector>

namespace Tarvik {
namespace {

using RawArchive::Bytes;

template <class Value>
Bytes saved(const Value& value)
{
  PersistenceArchiver archive;
  archive << value;
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

template <class T>
bool areEqual(const TKGroup<T>& a, const TKGroup<T>& b)
{
  return a.getName() == b.getName() && a.getId() == b.getId() &&
         a.getGroupMembers() == b.getGroupMembers();
}

bool areEqual(const NameInterface& a, const NameInterface& b)
{
  return typeid(a) == typeid(b) && a.getName() == b.getName();
}

/// For numbers and circular nodes, comparing the bytes is enough.
bool areEqual(double, double)
{
  return true;
}

bool areEqual(const Node& a, const Node& b)
{
  return a.neighbours.size() == b.neighbours.size();
}

template <class Value>
requires std::equality_comparable<Value>
bool areEqual(const Value& a, const Value& b)
{
  return a == b;
}

template <class C>
bool areEqual(const std::shared_ptr<C>& a, const std::shared_ptr<C>& b)
{
  return a == nullptr || b == nullptr ? a == b : areEqual(*a, *b);
}

template <class Element>
bool areEqual(const std::vector<Element>& a, const std::vector<Element>& b)
{
  return std::ranges::equal(a, b, [](const auto& x, const auto& y) { return areEqual(x, y); });
}

/// @{
/// Gives an object a content that hardly any archive has, so that a loader which leaves some of it
/// is found.
void fill(double& number)
{
  number = 4.5;
}

void fill(std::string& text)
{
  text = "there before";
}

void fill(GUIdentifier& id)
{
  id = GUIdentifier();
}

void fill(NameInterface& object)
{
  object.setName("there before", true);
}

template <class T>
void fill(TKGroup<T>& group)
{
  group = TKGroup<T>("there before");
  group.addGroupMembersAtIndex(std::vector<T>(2), 0);
}

void fill(Box& box)
{
  box = {"there before", {Box{"part", {}, {}}, Box()}, {true, false}};
}

void fill(Node& node)
{
  node.weight = 4.5;
  node.neighbours = {nullptr, std::make_shared<Node>()};
}

template <class C>
void fill(std::shared_ptr<C>& object)
{
  object = std::make_shared<C>();
  fill(*object);
}

template <class Element>
void fill(std::vector<Element>& elements)
{
  elements.resize(3);
  for (auto& element : elements)
    fill(element);
}
/// @}

/// @param bytes  an archive that can be opened
template <class Value>
void check(std::span<const std::byte> bytes)
{
  Value value{};
  try {
    PersistenceArchiver(bytes) >> value;
  } catch (const ArchiveError& error) {
    require(error.position() <= bytes.size(), "an error after the end of the archive");
    return;
  }

  const auto again = saved(value);
  Value reloaded{};
  PersistenceArchiver(again) >> reloaded;
  require(areEqual(value, reloaded), "saved and loaded again, the value is different");
  require(saved(reloaded) == again, "saved and loaded again, the bytes are different");

  Value other{};
  fill(other);
  PersistenceArchiver(bytes) >> other;
  require(areEqual(value, other), "loaded into an object with content, the value is different");
  require(saved(other) == again, "loaded into an object with content, the bytes are different");
}

void checkArchive(std::span<const std::byte> bytes)
{
  try {
    const PersistenceArchiver opened(bytes);
  } catch (const ArchiveError& error) {
    require(error.position() <= bytes.size(), "an error after the end of the archive");
    return;
  }

  using IdGroup = TKGroup<Identifier>;
  using GUIdGroup = TKGroup<GUIdentifier>;
  check<std::vector<IdGroup>>(bytes);
  check<std::vector<GUIdGroup>>(bytes);
  check<IdGroup>(bytes);
  check<std::shared_ptr<NameInterface>>(bytes);
  check<std::vector<std::shared_ptr<NameInterface>>>(bytes);
  check<std::vector<std::shared_ptr<IdGroup>>>(bytes);
  check<std::vector<std::shared_ptr<GUIdGroup>>>(bytes);
  check<std::vector<GUIdentifier>>(bytes);
  check<Box>(bytes);
  check<std::shared_ptr<Node>>(bytes);
  check<std::vector<std::vector<std::string>>>(bytes);
  check<std::vector<double>>(bytes);
  require(Node::takeApart() == 0, "nodes that are leaked");
}

void checkAny(std::span<const std::byte> bytes)
{
  static const std::vector<std::string> classes = {
      "TKIdGroup", "TKGUIdGroup", "NameInterface", "Identifier", "GUIdentifier", "Box", "Node"};
  checkArchive(bytes);
  checkArchive(RawArchive::looksLikeOne(bytes) ? RawArchive::repaired(bytes)
                                               : RawArchive::around(bytes, classes));
}

}
}

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  Tarvik::checkAny(std::as_bytes(std::span(data, size)));
  return 0;
}
