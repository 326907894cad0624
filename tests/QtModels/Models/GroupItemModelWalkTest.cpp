// SPDX-License-Identifier: MIT
// A model under random commands and changes, for each way in which it follows them.

#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Support/RandomChanges.h"
#include "QtModels/Support/ShownRows.h"
#include "Support/Identifiers.h"

#include <QtCore/QPersistentModelIndex>
#include <QtTest/QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// What the rows of a model show, by persistent indexes that were made before a change.
class RememberedRows {
public:
  explicit RememberedRows(const GroupItemModelBase& model) : m_model(model)
  {
    forEachRow(model, [this](const QModelIndex& index) {
      const auto id = identityOf(index);
      ++m_before[id];
      for (int column = 0; column < m_model.columnCount(); ++column)
        m_rows.push_back({index.siblingAtColumn(column), id});
    });
  }

  /// Expects that each index shows what it showed. What is there once, before and after one change,
  /// must still have an index.
  void expectToBeFollowed(int numberOfChanges) const
  {
    std::map<std::string, int> after;
    forEachRow(m_model, [&](const QModelIndex& index) { ++after[identityOf(index)]; });
    for (const auto& [index, id] : m_rows) {
      if (index.isValid())
        ASSERT_EQ(identityOf(index), id);
      else
        ASSERT_FALSE(numberOfChanges == 1 && m_before.at(id) == 1 && after[id] == 1)
            << id << " is lost";
    }
  }

private:
  struct Row {
    QPersistentModelIndex index;
    std::string id;
  };

  std::string identityOf(const QModelIndex& index) const
  {
    const bool isGroup = m_model.kindOf(index) == GroupItemModelBase::RowKind::Group;
    const auto id = index.data(GroupItemModelBase::IdentifierRole).toString().toStdString();
    return (isGroup ? "group " : "element ") + id;
  }

  const GroupItemModelBase& m_model;
  std::vector<Row> m_rows;
  std::map<std::string, int> m_before;
};

template <class T>
class GroupItemModelWalk : public ::testing::Test {
protected:
  static void walk(int maximumSteps)
  {
    for (unsigned int seed = 0; seed < 40; ++seed) {
      RandomChanges<T> changes(seed);
      GroupItemModel<T> model(changes.provider);
      model.setMaximumSteps(maximumSteps);
      const QAbstractItemModelTester tester(&model,
                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
      for (int change = 0; change < 60; ++change) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", change " + std::to_string(change));
        const RememberedRows rows(model);
        int numberOfChanges = 0;
        const auto counting = changes.provider->subscribe([&](const auto&) { ++numberOfChanges; });
        changes.changeSomething();
        ASSERT_NO_FATAL_FAILURE(expectToShow(model, *changes.provider));
        ASSERT_NO_FATAL_FAILURE(rows.expectToBeFollowed(numberOfChanges));
        ASSERT_EQ(changes.provider->takeListenerFailure(), nullptr);
      }
    }
  }
};
TYPED_TEST_SUITE(GroupItemModelWalk, ElementIdentifiers, KindName);

TYPED_TEST(GroupItemModelWalk, FollowsEachStep)
{
  this->walk(std::numeric_limits<int>::max());
}

TYPED_TEST(GroupItemModelWalk, FollowsWithChangesOfTheLayout)
{
  this->walk(0);
}

TYPED_TEST(GroupItemModelWalk, FollowsFewStepsAndManyAtOnce)
{
  this->walk(3);
}

}
}
