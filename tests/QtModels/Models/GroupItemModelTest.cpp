// SPDX-License-Identifier: MIT
#include "QtModels/Models/GroupItemModel.h"

#include "GroupHosting/Support/TestProvider.h"
#include "Support/Groups.h"

#include <QtTest/QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <memory>

namespace Tarvik {
namespace {

template <class T>
class GroupItemModelTest : public ::testing::Test {
protected:
  std::shared_ptr<TestProvider<T>> provider = std::make_shared<TestProvider<T>>();
};

TYPED_TEST_SUITE(GroupItemModelTest, ElementIdentifiers, KindName);

TYPED_TEST(GroupItemModelTest, ShowsGroupsWithTheirMembersAndThenUngroupedElements)
{
  const auto [x, y, z] = distinct<TypeParam, 3>();
  this->provider->setElements({x, y, z});
  this->provider->nameElements({{x, "x"}, {y, "y"}, {z, "z"}});
  this->provider->setGroups({group<TypeParam>("A", {y, x})});

  GroupItemModel<TypeParam> model(this->provider);
  QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);

  const auto groupRow = model.index(0, 0);
  EXPECT_EQ(model.rowCount(), 2);
  EXPECT_EQ(groupRow.data().toString(), "A");
  EXPECT_EQ(model.index(0, 1).data().toInt(), 2);
  EXPECT_EQ(model.index(0, 0, groupRow).data().toString(), "y");
  EXPECT_EQ(model.index(1, 0, groupRow).data().toString(), "x");
  EXPECT_EQ(model.index(1, 0).data().toString(), "z");
}

TYPED_TEST(GroupItemModelTest, AnswersRolesInAllColumns)
{
  const auto [x] = distinct<TypeParam, 1>();
  this->provider->setElements({x});
  this->provider->nameElements({{x, "x"}});
  this->provider->setGroups({group<TypeParam>("A", {x})});
  const GroupItemModel<TypeParam> model(this->provider);
  using Model = GroupItemModelBase;

  for (int column = 0; column < 2; ++column) {
    const auto groupRow = model.index(0, column);
    const auto element = model.index(0, column, model.index(0, 0));
    EXPECT_EQ(groupRow.data(Model::KindRole).template value<Model::RowKind>(),
              Model::RowKind::Group);
    EXPECT_EQ(element.data(Model::KindRole).template value<Model::RowKind>(),
              Model::RowKind::Member);
    EXPECT_EQ(groupRow.data(Model::NameRole).toString(), "A");
    EXPECT_EQ(element.data(Model::NameRole).toString(), "x");
    EXPECT_EQ(groupRow.data(Model::CountRole).toInt(), 1);
    EXPECT_FALSE(element.data(Model::CountRole).isValid());
    EXPECT_EQ(element.data(Model::IdentifierRole).toString().toStdString(), x.toString());
  }
  EXPECT_EQ(model.index(0, 0).data(Qt::EditRole).toString(), "A");
  EXPECT_EQ(model.index(0, 0).data(Qt::ToolTipRole).toString(), "A");
  EXPECT_FALSE(model.index(0, 1).data(Qt::EditRole).isValid());
}

TYPED_TEST(GroupItemModelTest, HasTitlesForItsColumns)
{
  const GroupItemModel<TypeParam> model(this->provider);

  EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "Name");
  EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "Members");
}

TYPED_TEST(GroupItemModelTest, LeavesOutTheColumnOfCounts)
{
  this->provider->setGroups({group<TypeParam>("A", {})});
  GroupItemModel<TypeParam> model(this->provider);
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);

  model.setCountColumnVisible(false);
  auto groups = this->provider->copyOfGroups();
  setMembers(groups[0], {TypeParam()});
  this->provider->setGroups(groups);

  EXPECT_EQ(model.columnCount(), 1);
  EXPECT_EQ(model.index(0, 0).data(GroupItemModelBase::CountRole).toInt(), 1);
}

TYPED_TEST(GroupItemModelTest, LetsTheApplicationAnswerFirst)
{
  this->provider->setGroups({group<TypeParam>("A", {})});
  GroupItemModel<TypeParam> model(this->provider);

  model.setRowData([](const QModelIndex&, int role) {
    return role == Qt::ToolTipRole ? QVariant("help") : QVariant();
  });

  EXPECT_EQ(model.index(0, 0).data(Qt::ToolTipRole).toString(), "help");
  EXPECT_EQ(model.index(0, 0).data().toString(), "A");
}

TYPED_TEST(GroupItemModelTest, FindsTheFirstGroupWithAnId)
{
  const auto twice = group<TypeParam>("A", {});
  this->provider->setGroups({group<TypeParam>("B", {}), twice, twice});
  const GroupItemModel<TypeParam> model(this->provider);

  EXPECT_EQ(model.indexOfGroup(twice.getId()).row(), 1);
  EXPECT_FALSE(model.indexOfGroup(Identifier()).isValid());
}

}
}
