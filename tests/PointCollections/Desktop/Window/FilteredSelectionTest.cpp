// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Support/WindowTest.h"

#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// The rows are Europe with Athens and Berlin, and Cairo in no group.
class FilteredSelectionTest : public WindowTest {
protected:
  FilteredSelectionTest()
  {
    createGroup("Europe", {element("Athens"), element("Berlin")});
    panel().tree().expandAll();
  }

  GroupsPanel& panel() const { return window->groups(); }
  void filter(const QString& text) const { panel().filterBox().setText(text); }

  /// The names of the selected rows that the tree shows.
  std::vector<std::string> shown() const
  {
    std::vector<std::string> names;
    for (const auto& row : panel().tree().selectedGroupRows())
      names.push_back(row.data().toString().toStdString());
    return names;
  }

  void click(const QString& name, Qt::KeyboardModifiers modifiers = {}) const
  {
    auto& tree = panel().tree();
    const auto found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, name, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1);
    tree.scrollTo(found[0]);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, modifiers,
                      tree.visualRect(found[0]).center());
  }
};

TEST_F(FilteredSelectionTest, ComesBackWhenTheFilterIsCleared)
{
  click("Athens");
  click("Cairo", Qt::ControlModifier);

  filter("berlin");
  EXPECT_THAT(shown(), IsEmpty());
  filter("");

  EXPECT_THAT(shown(), UnorderedElementsAre("Athens", "Cairo"));
}

TEST_F(FilteredSelectionTest, ComesBackRowByRow)
{
  click("Athens");
  click("Cairo", Qt::ControlModifier);

  filter("berlin");
  filter("athens");
  EXPECT_THAT(shown(), ElementsAre("Athens"));
  filter("cairo");
  EXPECT_THAT(shown(), ElementsAre("Cairo"));
}

TEST_F(FilteredSelectionTest, StaysSelectedInSpace)
{
  click("Athens");
  const auto before = window->points().selection();

  filter("cairo");

  EXPECT_EQ(window->points().selection(), before);
  EXPECT_THAT(panel().selectedElements(), ElementsAre(element("Athens")));
}

TEST_F(FilteredSelectionTest, GetsWhatIsSelectedInSpaceWhileItIsHidden)
{
  filter("cairo");
  QTest::keyClick(&window->points(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_THAT(shown(), ElementsAre("Cairo"));

  filter("");

  EXPECT_THAT(shown(), UnorderedElementsAre("Athens", "Berlin", "Cairo"));
}

TEST_F(FilteredSelectionTest, IsAddedToWithControl)
{
  click("Athens");
  filter("cairo");
  click("Cairo", Qt::ControlModifier);

  filter("");

  EXPECT_THAT(shown(), UnorderedElementsAre("Athens", "Cairo"));
}

TEST_F(FilteredSelectionTest, IsForgottenWhenTheUserSelectsSomethingElse)
{
  click("Athens");
  filter("cairo");
  click("Cairo");

  filter("");

  EXPECT_THAT(shown(), ElementsAre("Cairo"));
  EXPECT_THAT(panel().selectedElements(), ElementsAre(element("Cairo")));
}

TEST_F(FilteredSelectionTest, FollowsHiddenRowsThroughChanges)
{
  click("Cairo");
  filter("athens");
  createGroup("Asia", {});
  window->workspace().history().undo();

  filter("");

  EXPECT_THAT(shown(), ElementsAre("Cairo"));
}

}
}
