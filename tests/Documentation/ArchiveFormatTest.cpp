// SPDX-License-Identifier: MIT
// docs/archive-format.md is true: its example of a group, its tables and its limits.

#include "PersistenceArchiver/ArchiveFormat.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Platform/Support/Bytes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {
namespace {

using Cells = std::vector<std::string>;

std::string trimmed(std::string_view text)
{
  constexpr std::string_view marks = " `";
  const auto first = text.find_first_not_of(marks);
  if (first == std::string_view::npos)
    return {};
  return std::string(text.substr(first, text.find_last_not_of(marks) - first + 1));
}

/// The rows of the first table under the heading, without its two lines of heading.
std::vector<Cells> tableUnder(const std::string& heading)
{
  std::ifstream document(ARCHIVE_FORMAT_DOCUMENT);
  std::string line;
  while (std::getline(document, line) && line != heading) {
  }
  std::vector<Cells> rows;
  while (std::getline(document, line) && (rows.empty() || !line.empty())) {
    if (!line.starts_with('|'))
      continue;
    std::istringstream row(line.substr(1));
    Cells cells;
    for (std::string cell; std::getline(row, cell, '|');)
      cells.push_back(trimmed(cell));
    rows.push_back(cells);
  }
  if (rows.size() < 3) {
    ADD_FAILURE() << "no table under \"" << heading << "\" in " << ARCHIVE_FORMAT_DOCUMENT;
    return {};
  }
  return {rows.begin() + 2, rows.end()};
}

/// The archive of the example.
Bytes exampleArchive()
{
  Bytes archive;
  for (const auto& row : tableUnder("## A group, byte for byte")) {
    EXPECT_EQ(row.at(0), std::to_string(archive.size())) << "position of: " << row.at(2);
    const auto bytes = fromHex(row.at(1));
    archive.insert(archive.end(), bytes.begin(), bytes.end());
  }
  return archive;
}

template <class C>
BaseClassRegister recordOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  return record;
}

TEST(ArchiveFormatDocument, ShowsAGroupAsItIsRead)
{
  const auto archive = exampleArchive();
  PersistenceArchiver source(archive);
  TKGroup<GUIdentifier> group;

  source >> group;

  EXPECT_TRUE(source.isAtEnd());
  EXPECT_EQ(group.getName(), "Pumps");
  EXPECT_EQ(group.getId().toString(), "00112233445586778899aabbccddeeff");
  ASSERT_EQ(group.numberOfGroupMembers(), 2U);
  EXPECT_EQ(group.getGroupMemberAtIndex(0).toString(), "6ba7b810-9dad-11d1-80b4-00c04fd430c8");
  EXPECT_EQ(group.getGroupMemberAtIndex(1).toString(), "017f22e2-79b0-7cc3-98c4-dc0c0c07398f");
}

TEST(ArchiveFormatDocument, ShowsAGroupAsItIsWritten)
{
  const auto example = exampleArchive();
  PersistenceArchiver source(example);
  TKGroup<GUIdentifier> group;
  source >> group;
  PersistenceArchiver archive;

  archive << group;

  EXPECT_EQ(hex(archive.finish()), hex(example));
}

TEST(ArchiveFormatDocument, HasTheHeaderOfTheCode)
{
  const auto rows = tableUnder("## The whole");
  ASSERT_GE(rows.size(), 5U);

  EXPECT_EQ(rows[0].at(1), std::to_string(ArchiveFormat::magic.size()));
  EXPECT_EQ(rows[1].at(0), std::to_string(ArchiveFormat::versionPlace));
  EXPECT_EQ(rows[1].at(2), "format version: " + std::to_string(ArchiveFormat::version));
  EXPECT_EQ(rows[2].at(0), std::to_string(ArchiveFormat::sizePlace));
  EXPECT_EQ(rows[3].at(0), std::to_string(ArchiveFormat::tablePlace));
  EXPECT_EQ(rows[4].at(0), std::to_string(ArchiveFormat::headerSize));
}

TEST(ArchiveFormatDocument, HasTheLimitsOfTheCode)
{
  const auto rows = tableUnder("## Limits");
  ASSERT_EQ(rows.size(), 3U);
  const auto limit = [&](std::size_t row) {
    auto text = rows[row].at(1);
    std::erase(text, ',');
    return std::stoull(text);
  };

  EXPECT_EQ(limit(0), ArchiveFormat::greatestArchiveSize);
  EXPECT_EQ(limit(1), ArchiveFormat::greatestCount);
  EXPECT_EQ(limit(2), ArchiveFormat::greatestDepth);
}

TEST(ArchiveFormatDocument, ListsTheClassesOfGroups)
{
  const std::map<std::string, BaseClassRegister> classes = {
      {"TKIdGroup", recordOf<TKGroup<Identifier>>()},
      {"TKGUIdGroup", recordOf<TKGroup<GUIdentifier>>()},
      {"NameInterface", recordOf<NameInterface>()},
      {"Identifier", recordOf<Identifier>()},
      {"GUIdentifier", recordOf<GUIdentifier>()}};
  const auto rows = tableUnder("## Groups");

  EXPECT_EQ(rows.size(), classes.size());
  for (const auto& row : rows) {
    const auto found = classes.find(row.at(0));
    ASSERT_NE(found, classes.end()) << row.at(0);
    EXPECT_EQ(row.at(1), std::to_string(found->second.writeVersion)) << row.at(0);
    EXPECT_EQ(std::stoul(row.at(2), nullptr, 16), found->second.classHash) << row.at(0);
    EXPECT_EQ(PersistenceArchiver::getHashForName(row.at(0)), found->second.classHash);
  }
}

}
}
