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

}
}
