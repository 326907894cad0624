// SPDX-License-Identifier: MIT
// What a release has written can be loaded forever: see golden/README.md.

#include "HighLevelServices/golden/GoldenGroups.h"
#include "Platform/Support/Bytes.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

Bytes goldenFile(const std::string& name)
{
  std::ifstream file(std::string(TKM_GOLDEN_FILES) + '/' + name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name << " cannot be opened in " << TKM_GOLDEN_FILES;
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  const auto bytes = std::as_bytes(std::span(content));
  return {bytes.begin(), bytes.end()};
}

template <class T>
void expectGroup(const NameInterface& named,
                 const Identifier& id,
                 const std::string& name,
                 const std::vector<T>& members)
{
  const auto* const group = dynamic_cast<const TKGroup<T>*>(&named);
  ASSERT_NE(group, nullptr) << name;
  EXPECT_EQ(group->getName(), name);
  EXPECT_EQ(group->getId(), id) << name;
  EXPECT_EQ(group->getGroupMembers(), members) << name;
}

TEST(GoldenFile, OfArchiveFormat1IsLoaded)
{
  const auto id = [](std::uint64_t low) { return Identifier({0x0807060504030201, low}); };
  const auto guid = [](std::uint64_t low) { return GUIdentifier({0x0807060504030201, low}); };
  const auto bytes = goldenFile("groups-1.tkma");
  GoldenGroups loaded;
  PersistenceArchiver archive(bytes);

  loaded.loadFrom(archive);

  EXPECT_TRUE(archive.isAtEnd());
  ASSERT_EQ(loaded.groups.size(), 3U);
  const auto& groups = loaded.groups;
  expectGroup<Identifier>(groups[0], id(0x11), "Pumps", {id(0xa1), id(0xa2), id(0xa3)});
  expectGroup<Identifier>(groups[1], id(0x12), "", {});
  expectGroup<Identifier>(groups[2], id(0x13), std::string(" \0\xff ", 4),
                          {id(0xa1), id(0xa1), Identifier({0, 0})});
  ASSERT_EQ(loaded.guidGroups.size(), 2U);
  expectGroup<GUIdentifier>(loaded.guidGroups[0], id(0x21), "Lager f\xc3\xbcr Ventile",
                            {guid(0xb1), guid(0xb2)});
  expectGroup<GUIdentifier>(loaded.guidGroups[1], Identifier({0, 0}), "without an id",
                            {GUIdentifier({0, 0})});
  ASSERT_NE(loaded.shared, nullptr);
  expectGroup<Identifier>(*loaded.shared, id(0x31), "Shared", {id(0xc1)});
  EXPECT_EQ(loaded.sharedAgain, loaded.shared);
  EXPECT_EQ(loaded.sharedName, loaded.shared);
  ASSERT_NE(loaded.guidGroupName, nullptr);
  expectGroup<GUIdentifier>(*loaded.guidGroupName, id(0x32), "By its name", {guid(0xc2)});
  ASSERT_NE(loaded.plainName, nullptr);
  EXPECT_EQ(loaded.plainName->getName(), "Only a name");
  EXPECT_EQ(loaded.none, nullptr);
}

TEST(GoldenFile, TheNewestIsWhatIsWrittenToday)
{
  PersistenceArchiver archive;

  goldenGroups().saveTo(archive);

  EXPECT_EQ(hex(archive.finish()), hex(goldenFile("groups-1.tkma")));
}

}
}
