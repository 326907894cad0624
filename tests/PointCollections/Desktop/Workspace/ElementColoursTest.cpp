// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Workspace/ElementColours.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

class ElementColoursTest : public ::testing::Test {
protected:
  ElementColoursTest()
  {
    for (const auto* const name : {"a", "b", "c"})
      m_collections.push_back({GUIdentifier(), name, {}});
    document = PointDocument::create(m_collections);
  }

  GUIdentifier id(std::size_t element) const { return m_collections[element].id; }

  TKGroup<GUIdentifier> group(const std::string& name,
                              const std::vector<GUIdentifier>& members) const
  {
    TKGroup<GUIdentifier> result(name);
    result.addGroupMembersAtIndex(members, -1);
    return result;
  }

  std::shared_ptr<PointDocument> document;

private:
  std::vector<PointCollection> m_collections;
};

const auto grey = GroupColours::ofUngrouped().rgb();

TEST_F(ElementColoursTest, AreThoseOfTheFirstGroupThatHoldsAnElement)
{
  const auto x = group("X", {id(0), id(1)});
  const auto y = group("Y", {id(1)});
  document->setGroups({x, y});

  ElementColours colours(document);

  EXPECT_EQ(colours.colours()[0], colours.ofGroup(x.getId()).rgb());
  EXPECT_EQ(colours.colours()[1], colours.ofGroup(x.getId()).rgb());
  EXPECT_EQ(colours.colours()[2], grey);
}

TEST_F(ElementColoursTest, FollowEveryKindOfChange)
{
  ElementColours colours(document);
  int changes = 0;
  colours.setListener([&] { ++changes; });
  auto x = group("X", {id(0)});
  auto y = group("Y", {id(0), id(1)});
  const auto colourOf = [&](const auto& each) { return colours.ofGroup(each.getId()).rgb(); };

  document->setGroups({x, y});
  EXPECT_EQ(colours.colours(), std::vector<QRgb>({colourOf(x), colourOf(y), grey})) << "inserted";

  document->setGroups({y, x});
  EXPECT_EQ(colours.colours(), std::vector<QRgb>({colourOf(y), colourOf(y), grey})) << "moved";

  y.removeGroupMember(id(1));
  x.addGroupMember(id(2));
  document->setGroups({y, x});
  EXPECT_EQ(colours.colours(), std::vector<QRgb>({colourOf(y), grey, colourOf(x)})) << "members";

  document->setGroups({});
  EXPECT_EQ(colours.colours(), std::vector<QRgb>({grey, grey, grey})) << "removed";
  EXPECT_EQ(changes, 4);
}

TEST_F(ElementColoursTest, NumberElementsByTheirPlaceInTheDocument)
{
  const ElementColours colours(document);

  EXPECT_EQ(colours.numberOf(id(2)), 2U);
  EXPECT_EQ(colours.element(1).name, "b");
  EXPECT_EQ(colours.numberOf(GUIdentifier()), std::nullopt);
}

}
}
