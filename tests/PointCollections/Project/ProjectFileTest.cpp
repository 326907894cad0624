// SPDX-License-Identifier: MIT
#include "PointCollections/Project/ProjectFile.h"

#include "PointCollections/Editor/Editor.h"
#include "PointCollections/Support/Projects.h"

#include <gmock/gmock.h>

#include <cmath>

namespace Tarvik::PointCollections {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

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

TEST(ProjectFile, ForgetsThatGroupsWereExpandedThatAreGone)
{
  const auto document = smallDocument();
  document->setExpandedGroups({Identifier(), document->getGroups()[1].getId()});

  const auto loaded = load(saveProject(*document));

  EXPECT_THAT(loaded->expandedGroups(), UnorderedElementsAre(document->getGroups()[1].getId()));
}

TEST(ProjectFile, OfTheFirstVersionCanStillBeRead)
{
  const auto opened = openDocument(*diskFiles(), POINT_COLLECTIONS_GOLDEN "/version-1.tkpc");

  EXPECT_EQ(everythingIn(*opened.document), R"(f7b6e4b6-778f-82c5-b846-0abb4e070001 Athens
 4607182418800017408 4611686018427387904 4613937818241073152
f7b6e4b6-778f-82c5-b846-0abb4e070002 Berlin
 4616189618054758400 4617315517961601024 4618441417868443648
 4619567317775286272 4620693217682128896 4621256167635550208
f7b6e4b6-778f-82c5-b846-0abb4e070003 Cairo
 13830554455654793216 4602678819172646912 9094988921128908188
f7b6e4b6778f82c5b8460abb4e070004 Europe
 f7b6e4b6-778f-82c5-b846-0abb4e070002
 f7b6e4b6-778f-82c5-b846-0abb4e070001
f7b6e4b6778f82c5b8460abb4e070005 Größe 都市
f7b6e4b6778f82c5b8460abb4e070006 Africa
 f7b6e4b6-778f-82c5-b846-0abb4e070003
)");
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
