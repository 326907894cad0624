// SPDX-License-Identifier: MIT
#include "PointCollections/Project/ProjectFile.h"

#include "PointCollections/Support/Projects.h"

#include <gmock/gmock.h>

#include <cmath>

namespace Tarvik::PointCollections {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(ProjectFile, KeepsEverything)
{
  const auto document = smallDocument();

  EXPECT_EQ(everythingKept(*document), everythingIn(*document));
}

TEST(ProjectFile, KeepsAnEmptyDocument)
{
  EXPECT_EQ(everythingKept(*PointDocument::create()), "");
}

TEST(ProjectFile, KeepsElementsInMoreThanOneGroupAndThoseOfOtherDocuments)
{
  const auto document = smallDocument();
  Group group("strange");
  group.addGroupMembersAtIndex({document->order()[0], document->order()[0], GUIdentifier()}, 0);
  Group other("other");
  other.addGroupMember(document->order()[0]);
  document->setGroups({group, other});

  EXPECT_EQ(everythingKept(*document), everythingIn(*document));
}

TEST(ProjectFile, KeepsManyElements)
{
  std::vector<PointCollection> collections(20000);
  for (std::size_t i = 0; i < collections.size(); ++i) {
    collections[i].name = "element " + std::to_string(i);
    collections[i].points = {Point{static_cast<double>(i), 0.5, -1}};
  }
  const auto document = PointDocument::create(collections);

  EXPECT_EQ(everythingKept(*document), everythingIn(*document));
}

TEST(ProjectFile, IsTheSameForTheSameDocument)
{
  const auto document = smallDocument();

  const auto bytes = saveProject(*document);

  EXPECT_EQ(bytes, saveProject(*document));
  EXPECT_EQ(bytes, saveProject(*load(bytes)));
}

TEST(ProjectFile, IsNotMadeIfItCouldNotBeLoaded)
{
  const auto mistakeWith = [](const PointCollection& collection) {
    return mistakeIn([&] { saveProject(*PointDocument::create({collection})); });
  };

  EXPECT_THAT(mistakeWith({.id = GUIdentifier(), .name = "\xFF", .points = {}}),
              AllOf(StartsWith("the document cannot be saved: "), HasSubstr("UTF-8")));
  EXPECT_THAT(mistakeWith({.id = GUIdentifier(), .name = "a", .points = {{0, std::nan(""), 0}}}),
              HasSubstr("expected finite coordinates, found others in a"));
  EXPECT_THAT(mistakeWith({.id = GUIdentifier::getInvalidId(), .name = "a", .points = {}}),
              HasSubstr("expected the id of an element"));
}

TEST(ProjectFile, HasANameThatEndsInTkpc)
{
  EXPECT_TRUE(isProjectName("a.tkpc"));
  EXPECT_TRUE(isProjectName("/b/a.b.TKPC"));
  EXPECT_FALSE(isProjectName("a.csv"));
  EXPECT_FALSE(isProjectName("a.tkpc.csv"));
  EXPECT_FALSE(isProjectName("tkpc"));
  EXPECT_FALSE(isProjectName(".tkpc"));
  EXPECT_FALSE(isProjectName(""));
}

}
}
