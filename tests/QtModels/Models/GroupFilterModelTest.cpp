// SPDX-License-Identifier: MIT
#include "QtModels/Models/GroupFilterModel.h"

#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Support/RandomChanges.h"
#include "QtModels/Support/RecordedSignals.h"
#include "QtModels/Support/ShownRows.h"
#include "QtModels/Views/TreeViewState.h"
#include "Support/Groups.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPersistentModelIndex>
#include <QtTest/QAbstractItemModelTester>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTreeView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Groups "Oslo" of "Ester" and "Hugo", and "Rome" of "Anna"; "Oskar" is ungrouped.
template <class T>
class GroupFilter : public ::testing::Test {
protected:
  GroupFilter()
  {
    provider->setElements(ids);
    provider->nameElements(
        {{ids[0], "Ester"}, {ids[1], "Hugo"}, {ids[2], "Anna"}, {ids[3], "Oskar"}});
    provider->setGroups({group("Oslo", {ids[0], ids[1]}), group("Rome", {ids[2]})});
    model = std::make_unique<GroupItemModel<T>>(provider);
    filter.setSourceModel(model.get());
  }

  const std::vector<T> ids = std::vector<T>(4);
  std::shared_ptr<TestProvider<T>> provider = std::make_shared<TestProvider<T>>();
  std::unique_ptr<GroupItemModel<T>> model;
  GroupFilterModel filter;
};
TYPED_TEST_SUITE(GroupFilter, ElementIdentifiers, KindName);

TYPED_TEST(GroupFilter, ShowsAGroupForTheSakeOfAMember)
{
  this->filter.setFilterText("ann");

  EXPECT_THAT(textsOf(this->filter), ElementsAre("Rome", "- Anna"));
  EXPECT_EQ(this->filter.matchingGroups(), 0);
  EXPECT_EQ(this->filter.matchingElements(), 1);
}

TYPED_TEST(GroupFilter, ShowsAllMembersOfAGroupThatMatches)
{
  this->filter.setFilterText("OS");

  EXPECT_THAT(textsOf(this->filter), ElementsAre("Oslo", "- Ester", "- Hugo", "Oskar"));
  EXPECT_EQ(this->filter.matchingGroups(), 1);
  EXPECT_EQ(this->filter.matchingElements(), 1);
}

TYPED_TEST(GroupFilter, ShowsEverythingWithoutAText)
{
  const auto all = textsOf(*this->model);
  this->filter.setFilterText("a");

  this->filter.setFilterText("");

  EXPECT_EQ(textsOf(this->filter), all);
  EXPECT_EQ(this->filter.matchingGroups(), 2);
  EXPECT_EQ(this->filter.matchingElements(), 4);
}

TYPED_TEST(GroupFilter, ShowsMoreAgainWhenTheTextGetsShorter)
{
  this->filter.setFilterText("an");
  this->filter.setFilterText("ann");
  this->filter.setFilterText("a");

  EXPECT_THAT(textsOf(this->filter), ElementsAre("Rome", "- Anna", "Oskar"));
}

TYPED_TEST(GroupFilter, KeepsPersistentIndexesOfWhatStays)
{
  const QPersistentModelIndex anna = this->filter.index(0, 0, this->filter.index(1, 0));
  const QPersistentModelIndex hugo = this->filter.index(1, 0, this->filter.index(0, 0));

  this->filter.setFilterText("ann");

  EXPECT_EQ(anna.data().toString(), "Anna");
  EXPECT_EQ(anna.parent().row(), 0);
  EXPECT_FALSE(hugo.isValid());
}

TYPED_TEST(GroupFilter, TellsChangesOfTheSourceAsTheyAreWithoutAText)
{
  const RecordedSignals ofModel(*this->model);
  const RecordedSignals ofFilter(this->filter);

  AddToTKGroupCmd<TypeParam>(this->provider, {this->ids[1]}, this->provider->getGroups()[1].getId())
      .execute();
  this->provider->renameGroup(this->provider->getGroups()[0].getId(), "Paris");
  this->provider->setGroups({});

  EXPECT_EQ(ofFilter.texts(), ofModel.texts());
}

TYPED_TEST(GroupFilter, TellsNothingOfWhatIsHidden)
{
  this->filter.setFilterText("ann");
  const RecordedSignals recorded(this->filter);

  this->model->elementsChanged({this->ids[0]});

  EXPECT_THAT(recorded.texts(), IsEmpty());
}

TYPED_TEST(GroupFilter, FollowsNewNames)
{
  this->filter.setFilterText("ann");
  this->provider->nameElements({{this->ids[0], "Joann"}});

  this->model->allElementsChanged();

  EXPECT_THAT(textsOf(this->filter), ElementsAre("Oslo", "- Joann"));
}

TYPED_TEST(GroupFilter, KeepsItsLayoutWhenTheSameRowsMatchUnderNewNames)
{
  this->filter.setFilterText("ann");
  this->provider->nameElements({{this->ids[0], "Pia"}, {this->ids[2], "Joann"}});
  int isTold = 0;
  QObject::connect(&this->filter, &GroupFilterModel::matchesChanged, [&] { ++isTold; });
  const RecordedSignals recorded(this->filter);

  this->model->elementsChanged({this->ids[0], this->ids[2]});

  EXPECT_THAT(recorded.texts(), ElementsAre("Rome: rows 0 to 0 change"));
  EXPECT_EQ(isTold, 0);
  EXPECT_THAT(textsOf(this->filter), ElementsAre("Rome", "- Joann"));

  this->filter.setFilterText("joann");
  EXPECT_THAT(textsOf(this->filter), ElementsAre("Rome", "- Joann"));
}

TYPED_TEST(GroupFilter, AsksForNoNameAgainWhileTheUserTypes)
{
  this->filter.setFilterText("a");
  int questions = 0;
  this->model->setRowData([&](const QModelIndex&, int) {
    ++questions;
    return QVariant();
  });
  questions = 0;

  this->filter.setFilterText("an");
  this->filter.setFilterText("r");

  EXPECT_EQ(questions, 0);
}

TYPED_TEST(GroupFilter, ShowsNothingWhenTheSourceIsDestroyed)
{
  this->filter.setFilterText("a");
  std::vector<int> matches;
  QObject::connect(&this->filter, &GroupFilterModel::matchesChanged,
                   [&] { matches.push_back(this->filter.matchingElements()); });

  this->model.reset();

  EXPECT_EQ(this->filter.rowCount(), 0);
  EXPECT_THAT(matches, ElementsAre(0));
}

TYPED_TEST(GroupFilter, ForgetsADestroyedSourceBeforeViewsAskAgain)
{
  for (const QString text : {"", "a"}) {
    auto source = std::make_unique<GroupItemModel<TypeParam>>(this->provider);
    this->filter.setSourceModel(source.get());
    this->filter.setSourceModel(source.get()); // once more, which must not change anything
    this->filter.setFilterText(text);
    QTreeView view;
    view.setModel(&this->filter);
    new TreeViewState(&view);
    view.resize(200, 30);
    view.expandAll();
    view.show();
    QApplication::processEvents();
    view.verticalScrollBar()->setValue(1);
    view.selectAll();
    std::vector<const QAbstractItemModel*> sources;
    QObject::connect(&this->filter, &QAbstractItemModel::modelReset, &view,
                     [&] { sources.push_back(this->filter.sourceModel()); });

    source.reset();
    QApplication::processEvents();

    EXPECT_THAT(sources, ElementsAre(nullptr));
    EXPECT_EQ(view.header()->count(), 0);
    EXPECT_FALSE(view.indexAt({0, 0}).isValid());
  }
}

/// Rows whose names are texts with their numbers, and can be changed one by one.
class ManyNames {
public:
  ManyNames(std::size_t groupCount, std::size_t membersPerGroup)
  {
    std::vector<TKGroup<Identifier>> groups(groupCount);
    std::vector<Identifier> elements;
    for (auto& group : groups) {
      setMembers(group, std::vector<Identifier>(membersPerGroup));
      elements.insert(elements.end(), group.getGroupMembers().begin(),
                      group.getGroupMembers().end());
    }
    provider->setElements(elements);
    provider->setGroups(groups);
    model.setRowData([this](const QModelIndex& index, int role) {
      return role == Qt::DisplayRole ? nameOf(index) : QVariant();
    });
  }

  /// Gives a member another name.
  void rename(const QModelIndex& member)
  {
    ++m_renamed;
    Q_EMIT model.dataChanged(member, member);
  }

  std::shared_ptr<TestProvider<Identifier>> provider = std::make_shared<TestProvider<Identifier>>();
  GroupItemModel<Identifier> model{provider};

private:
  QVariant nameOf(const QModelIndex& index) const
  {
    return QStringLiteral("the element with the number %1 of %2").arg(index.row()).arg(m_renamed);
  }

  int m_renamed = 0;
};

TEST(GroupFilterOfManyNames, SearchesOnlyTheListThatChanges)
{
  ManyNames names(100, 1000);
  GroupFilterModel filter;
  filter.setSourceModel(&names.model);
  QElapsedTimer timer;
  timer.start();
  filter.setFilterText("number 123 of");
  const auto timeForAllNames = timer.restart();
  ASSERT_EQ(filter.matchingElements(), 100);

  const auto group = names.model.index(50, 0);
  for (int i = 0; i < 500; ++i)
    names.rename(names.model.index(i, 0, group));

  EXPECT_LT(timer.elapsed(), 3 * timeForAllNames)
      << "milliseconds: all names are searched each time";
}

/// What a filter must show, found by looking at each name.
std::vector<std::string> filtered(const QAbstractItemModel& model, const QString& text)
{
  const auto matches = [&](const QModelIndex& index) {
    return index.data().toString().contains(text, Qt::CaseInsensitive);
  };
  std::vector<std::string> texts;
  for (int row = 0; row < model.rowCount(); ++row) {
    const auto top = model.index(row, 0);
    std::vector<std::string> members;
    for (int member = 0; member < model.rowCount(top); ++member) {
      const auto index = model.index(member, 0, top);
      if (matches(top) || matches(index))
        members.push_back("- " + index.data().toString().toStdString());
    }
    if (matches(top) || !members.empty())
      texts.push_back(top.data().toString().toStdString());
    texts.insert(texts.end(), members.begin(), members.end());
  }
  return texts;
}

template <class T>
void renameSomeElements(RandomChanges<T>& changes, GroupItemModel<T>& model)
{
  std::vector<std::pair<T, std::string>> names;
  for (const T& element : changes.pool())
    names.emplace_back(element, std::to_string(changes.number(100)));
  changes.provider->nameElements(names);
  model.allElementsChanged();
}

template <class T>
class GroupFilterWalk : public ::testing::Test {};
TYPED_TEST_SUITE(GroupFilterWalk, ElementIdentifiers, KindName);

TYPED_TEST(GroupFilterWalk, FollowsRandomChangesOfSourceAndText)
{
  const std::array<QString, 6> texts = {"", "1", "12", "g", "GROUP", "nothing"};
  for (unsigned int seed = 0; seed < 60; ++seed) {
    RandomChanges<TypeParam> changes(seed);
    GroupItemModel<TypeParam> model(changes.provider);
    model.setMaximumSteps(seed % 3 == 0 ? 0 : 1000);
    GroupFilterModel filter;
    filter.setSourceModel(&model);
    const QAbstractItemModelTester tester(&filter,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    QTreeView view;
    view.setModel(&filter);
    new TreeViewState(&view);
    view.expandAll();
    view.show();
    for (int change = 0; change < 40; ++change) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", change " + std::to_string(change));
      if (changes.number(4) == 0)
        filter.setFilterText(texts[changes.number(texts.size())]);
      if (changes.number(8) == 0)
        renameSomeElements(changes, model);
      changes.changeSomething();
      ASSERT_EQ(changes.provider->takeListenerFailure(), nullptr);
      ASSERT_EQ(textsOf(filter), filtered(model, filter.filterText()));
      QApplication::processEvents();
      view.setCurrentIndex(view.indexBelow(view.currentIndex()));
    }
  }
}

}
}
