// SPDX-License-Identifier: MIT
#include "QtModels/Views/TreeViewState.h"

#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "QtModels/Models/GroupFilterModel.h"
#include "QtModels/Models/GroupItemModel.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QItemSelection>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTreeView>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

class TreeViewStateTest : public ::testing::Test {
protected:
  /// Shows groups "0", "1", ... of three members each.
  void show(std::size_t groupCount)
  {
    std::vector<TKGroup<Identifier>> groups(groupCount);
    std::vector<Identifier> elements;
    for (std::size_t i = 0; i < groupCount; ++i) {
      groups[i].setName(std::to_string(i), true);
      setMembers(groups[i], std::vector<Identifier>(3));
      const auto& members = groups[i].getGroupMembers();
      elements.insert(elements.end(), members.begin(), members.end());
    }
    provider->setElements(elements);
    provider->setGroups(groups);
    model = std::make_unique<GroupItemModel<Identifier>>(provider);
    showModel(model.get());
  }

  void showModel(QAbstractItemModel* shownModel)
  {
    view = std::make_unique<QTreeView>();
    view->setUniformRowHeights(true);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setModel(shownModel);
    view->resize(200, 150);
    state = new TreeViewState(view.get());
    view->show();
    QApplication::processEvents();
  }

  QModelIndex groupRow(int row) const { return model->index(row, 0); }
  QModelIndex memberRow(int row, int group) const { return model->index(row, 0, groupRow(group)); }
  Identifier idOf(int group) const { return model->groupIdAt(groupRow(group)); }

  /// What the user sees: the name of the row at the top, with a mark if it is a member.
  std::string topRow() const
  {
    const auto index =
        view->indexAt({view->isRightToLeft() ? view->viewport()->width() - 1 : 0, 0});
    return (index.parent().isValid() ? "member of " + index.parent().data().toString() : "group ")
               .toStdString() +
           index.data().toString().toStdString();
  }

  std::shared_ptr<TestProvider<Identifier>> provider = std::make_shared<TestProvider<Identifier>>();
  std::unique_ptr<GroupItemModel<Identifier>> model;
  GroupFilterModel filter;
  std::unique_ptr<QTreeView> view;
  TreeViewState* state = nullptr;
};

TEST_F(TreeViewStateTest, KeepsSelectionAndCurrentRowOfAnElementThatGoesToAnotherGroup)
{
  show(4);
  view->expand(groupRow(0));
  view->setCurrentIndex(memberRow(1, 0));
  const auto element = *model->elementAt(memberRow(1, 0));
  AddToTKGroupCmd<Identifier> add(provider, {element}, idOf(3));

  add.execute();
  QApplication::processEvents();

  EXPECT_EQ(view->currentIndex(), memberRow(3, 3));
  EXPECT_TRUE(view->selectionModel()->isSelected(memberRow(3, 3)));
  EXPECT_FALSE(view->isExpanded(groupRow(3)));
  add.undo();
  QApplication::processEvents();
  EXPECT_EQ(view->currentIndex(), memberRow(1, 0));
  EXPECT_TRUE(view->selectionModel()->isSelected(memberRow(1, 0)));
  EXPECT_TRUE(view->isExpanded(groupRow(0)));
}

TEST_F(TreeViewStateTest, KeepsWhatIsExpandedAndSelectedWhenGroupsAreSorted)
{
  show(12);
  view->expand(groupRow(11));
  view->setCurrentIndex(groupRow(11));
  const auto id = idOf(11);

  SortTKGroupsAlphabeticallyCmd<Identifier>(provider).execute();
  QApplication::processEvents();

  const auto index = model->indexOfGroup(id);
  EXPECT_EQ(index.row(), 3);
  EXPECT_TRUE(view->isExpanded(index));
  EXPECT_EQ(view->currentIndex(), index);
}

TEST_F(TreeViewStateTest, ExpandsAGroupThatComesBackByUndo)
{
  show(3);
  view->expand(groupRow(1));
  RemoveTKGroupsCmd<Identifier> remove(provider, {idOf(1)});

  remove.execute();
  QApplication::processEvents();
  remove.undo();
  QApplication::processEvents();

  EXPECT_FALSE(view->isExpanded(groupRow(0)));
  EXPECT_TRUE(view->isExpanded(groupRow(1)));
}

TEST_F(TreeViewStateTest, ForgetsAGroupThatTheUserCollapses)
{
  show(3);
  view->expand(groupRow(1));
  view->collapse(groupRow(1));

  model->reload();
  QApplication::processEvents();

  EXPECT_FALSE(view->isExpanded(groupRow(1)));
}

TEST_F(TreeViewStateTest, KeepsEverythingOverAReset)
{
  show(40);
  view->expand(groupRow(20));
  view->setCurrentIndex(memberRow(1, 20));
  view->selectionModel()->select(groupRow(22),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
  view->verticalScrollBar()->setValue(19);
  const auto top = topRow();
  ASSERT_EQ(top, "group 19");

  model->reload();
  QApplication::processEvents();

  EXPECT_TRUE(view->isExpanded(groupRow(20)));
  EXPECT_EQ(view->currentIndex(), memberRow(1, 20));
  EXPECT_TRUE(view->selectionModel()->isSelected(memberRow(1, 20)));
  EXPECT_TRUE(view->selectionModel()->isSelected(groupRow(22)));
  EXPECT_EQ(view->selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(topRow(), top);
}

TEST_F(TreeViewStateTest, DoesNotExpandTheGroupOfTheCurrentRowAfterAReset)
{
  show(3);
  view->setCurrentIndex(memberRow(1, 2));
  view->collapse(groupRow(2));

  model->reload();
  QApplication::processEvents();

  EXPECT_FALSE(view->isExpanded(groupRow(2)));
}

TEST_F(TreeViewStateTest, KeepsTheTopRowWhenRowsLeaveAndComeAboveIt)
{
  for (const auto mode : {QAbstractItemView::ScrollPerItem, QAbstractItemView::ScrollPerPixel}) {
    show(60);
    view->setVerticalScrollMode(mode);
    QApplication::processEvents();
    view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() / 2);
    const auto top = topRow();
    auto groups = provider->copyOfGroups();
    RemoveTKGroupsCmd<Identifier> remove(provider, {idOf(0), idOf(2)});

    remove.execute();
    QApplication::processEvents();
    EXPECT_EQ(topRow(), top);
    remove.undo();
    QApplication::processEvents();

    EXPECT_EQ(topRow(), top);
  }
}

TEST_F(TreeViewStateTest, KeepsTheTopRowWithColumnsThatDoNotFillTheView)
{
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    show(60);
    view->setLayoutDirection(direction);
    view->header()->setStretchLastSection(false);
    for (const auto column : {GroupItemModelBase::NameColumn, GroupItemModelBase::CountColumn})
      view->setColumnWidth(column, 60);
    QApplication::processEvents();
    view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() / 2);
    const auto top = topRow();

    RemoveTKGroupsCmd<Identifier>(provider, {idOf(0), idOf(2)}).execute();
    QApplication::processEvents();

    EXPECT_EQ(topRow(), top) << direction;
  }
}

TEST_F(TreeViewStateTest, GivesExpandedGroupsToBeStored)
{
  show(5);
  view->expand(groupRow(1));
  view->expand(groupRow(3));
  const auto stored = state->expandedGroups();
  showModel(model.get());

  state->setExpandedGroups(stored);

  EXPECT_EQ(stored.size(), 2);
  for (int row = 0; row < 5; ++row)
    EXPECT_EQ(view->isExpanded(groupRow(row)), row == 1 || row == 3) << row;
  EXPECT_EQ(state->expandedGroups(), stored);
}

TEST_F(TreeViewStateTest, ExpandsAgainWhatAFilterNoLongerHides)
{
  show(5);
  filter.setSourceModel(model.get());
  showModel(&filter);
  view->expand(filter.index(1, 0));
  filter.setFilterText("3");
  QApplication::processEvents();

  filter.setFilterText("");
  QApplication::processEvents();

  EXPECT_TRUE(view->isExpanded(filter.index(1, 0)));
}

TEST_F(TreeViewStateTest, ExpandsTenThousandGroupsAtOnceAndSelectsNothing)
{
  show(10'000);
  QStringList ids;
  for (int row = 0; row < model->rowCount(); ++row)
    ids.append(groupRow(row).data(GroupItemModelBase::IdentifierRole).toString());
  QElapsedTimer timer;
  timer.start();

  state->setExpandedGroups(ids);
  QApplication::processEvents();

  EXPECT_LT(timer.elapsed(), 10'000) << "milliseconds: rows are laid out each time";
  EXPECT_TRUE(view->isExpanded(groupRow(9'999)));
  EXPECT_FALSE(view->selectionModel()->hasSelection());
}

TEST_F(TreeViewStateTest, KeepsTwentyThousandSelectedRowsOverAReset)
{
  show(5'000);
  view->expandAll();
  view->selectAll();
  view->selectionModel()->select(QItemSelection(memberRow(1, 7), memberRow(1, 7)),
                                 QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
  QElapsedTimer timer;
  timer.start();

  model->reload();
  QApplication::processEvents();

  EXPECT_LT(timer.elapsed(), 20'000) << "milliseconds: each row is compared with each range";
  const auto ranges = view->selectionModel()->selection();
  EXPECT_EQ(ranges.size(), 5'002) << "the groups, the members of each, and one gap";
  const auto rows = std::accumulate(
      ranges.begin(), ranges.end(), 0,
      [](int sum, const QItemSelectionRange& range) { return sum + range.height(); });
  EXPECT_EQ(rows, 19'999);
  EXPECT_FALSE(view->selectionModel()->isSelected(memberRow(1, 7)));
}

}
}
