// SPDX-License-Identifier: MIT
#include "QtModels/Editing/GroupDragData.h"

#include "Identifier/Identifier.h"

#include <gtest/gtest.h>

#include <vector>

namespace Tarvik {
namespace {

using Kind = GroupDragData::Kind;

constexpr GroupDragData::Document document = 7;

GroupDragData dataOf(Kind kind, std::size_t count)
{
  GroupDragData data{document, kind, {}};
  for (std::size_t i = 0; i < count; ++i)
    data.ids.push_back(Identifier().bits());
  return data;
}

bool isRefused(const QByteArray& bytes)
{
  return !GroupDragData::fromBytes(bytes, document) && !GroupDragData::kindOf(bytes, document);
}

TEST(GroupDragDataTest, ReadsWhatItHasWritten)
{
  for (const auto kind : {Kind::Groups, Kind::Elements}) {
    const auto written = dataOf(kind, 3);
    const auto bytes = written.toBytes();
    const auto read = GroupDragData::fromBytes(bytes, document);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->kind, kind);
    EXPECT_EQ(read->ids, written.ids);
    EXPECT_EQ(GroupDragData::kindOf(bytes, document), kind);
  }
}

TEST(GroupDragDataTest, RefusesDataOfAnotherDocument)
{
  const auto bytes = dataOf(Kind::Elements, 1).toBytes();
  EXPECT_FALSE(GroupDragData::fromBytes(bytes, document + 1));
  EXPECT_FALSE(GroupDragData::kindOf(bytes, document + 1));
}

TEST(GroupDragDataTest, RefusesDataThatIsCutAnywhereOrTooLong)
{
  const auto bytes = dataOf(Kind::Elements, 2).toBytes();
  for (qsizetype size = 0; size < bytes.size(); ++size)
    EXPECT_TRUE(isRefused(bytes.left(size))) << size << " bytes";
  EXPECT_TRUE(isRefused(bytes + '\0'));
}

TEST(GroupDragDataTest, RefusesAnotherByteAnywhereInTheHeader)
{
  constexpr qsizetype bytesOfHeader = 37;
  const auto bytes = dataOf(Kind::Elements, 2).toBytes();
  for (qsizetype i = 0; i < bytesOfHeader; ++i) {
    auto changed = bytes;
    changed[i] = static_cast<char>(changed[i] ^ '\x40');
    EXPECT_TRUE(isRefused(changed)) << "byte " << i;
  }
}

TEST(GroupDragDataTest, RefusesDataWithoutIds)
{
  EXPECT_TRUE(isRefused(dataOf(Kind::Groups, 0).toBytes()));
}

}
}
