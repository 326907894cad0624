// SPDX-License-Identifier: MIT
// What a model shows when memory runs out while it follows a change.

#include "GroupHosting/Support/TestProvider.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Support/RecordedSignals.h"
#include "QtModels/Support/ShownRows.h"
#include "QtModels/Support/TextCommand.h"
#include "Support/Allocations.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class GroupItemModelFailures : public ::testing::Test {
protected:
  GroupItemModelFailures()
  {
    before = {group("X with a name that is long", {ids[0], ids[1]}),
              group("Y with a name that is long", {ids[2]}), group("Z", {ids[3]})};
    after = before;
    after[0].setName("another name that is long", true);
    setMembers(after[0], {ids[4], ids[1], ids[4]});
    after.erase(after.begin() + 1);
    after.push_back(group("New with a name that is long", {ids[3], ids[9]}));
  }

  /// Lets one allocation after the other fail, until none does.
  void expectToFollowWhicheverAllocationFails(int maximumSteps)
  {
    bool hasSucceeded = false;
    for (std::size_t failing = 0; !hasSucceeded; ++failing) {
      ASSERT_LT(failing, 10'000U);
      const auto provider = std::make_shared<TestProvider<T>>(ids);
      provider->setGroups(before);
      GroupItemModel<T> model(provider);
      model.setMaximumSteps(maximumSteps);
      // No others: Qt loses them if its own allocations fail.
      const QPersistentModelIndex leaving = model.index(1, 0);
      const auto shown = leaving.data().toString();
      QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, [&] {
        EXPECT_TRUE(!leaving.isValid() || leaving.data().toString() == shown) << failing;
      });
      try {
        const AllocationWatch watch(failing);
        provider->setGroups(after);
        hasSucceeded = !AllocationWatch::hasFailed();
      } catch (const std::bad_alloc&) {
        ASSERT_NO_FATAL_FAILURE(expectToShow(model, *provider)) << failing;
        continue;
      }
      ASSERT_NO_FATAL_FAILURE(expectToShow(model, *provider)) << failing;
      provider->setGroups(before);
      ASSERT_NO_FATAL_FAILURE(expectToShow(model, *provider)) << failing;
    }
  }

  const std::vector<T> ids = std::vector<T>(10);
  std::vector<TKGroup<T>> before;
  std::vector<TKGroup<T>> after;
};
TYPED_TEST_SUITE(GroupItemModelFailures, ElementIdentifiers, KindName);

TYPED_TEST(GroupItemModelFailures, LeaveTheStateOfTheProviderAfterAnyStep)
{
  this->expectToFollowWhicheverAllocationFails(100);
}

TYPED_TEST(GroupItemModelFailures, LeaveTheStateOfTheProviderInAChangeOfTheLayout)
{
  this->expectToFollowWhicheverAllocationFails(0);
}

TYPED_TEST(GroupItemModelFailures, AreResetsWhenASlotThrows)
{
  const auto provider = std::make_shared<TestProvider<TypeParam>>();
  provider->setGroups(this->before);
  GroupItemModel<TypeParam> model(provider);
  const RecordedSignals recorded(model);
  QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, &model,
                   [] { throw std::runtime_error("a slot"); });

  provider->setGroups({});

  EXPECT_EQ(recorded.texts(), std::vector<std::string>{"reset"});
  expectToShow(model, *provider);
}

TYPED_TEST(GroupItemModelFailures, DoNotRepeatAChangeThatWaitsToBeTold)
{
  const auto provider = std::make_shared<TestProvider<TypeParam>>(this->ids);
  provider->setGroups(this->before);
  bool isFirst = true;
  const auto meddling = provider->subscribe([&](const auto&) {
    if (std::exchange(isFirst, false))
      provider->setGroups(this->before);
  });
  GroupItemModel<TypeParam> model(provider);
  bool throws = true;
  QObject::connect(&model, &QAbstractItemModel::layoutAboutToBeChanged, &model, [&] {
    if (std::exchange(throws, false))
      throw std::runtime_error("a slot");
  });
  model.setMaximumSteps(0);

  provider->setGroups(this->after);

  expectToShow(model, *provider);
}

/// A provider whose names cannot be had.
template <class T>
class NamelessProvider : public TKGroupProvider<T> {
public:
  explicit NamelessProvider(Failure failure) : m_failure(failure) {}

  std::string getElementName(const T&) override
  {
    failWith(m_failure);
    return {};
  }

private:
  Failure m_failure;
};

TYPED_TEST(GroupItemModelFailures, OfNamesAreToldAndLeaveTheRowEmpty)
{
  for (const auto& [failure, text] : {std::pair(Failure::Error, "the disk is full"),
                                      std::pair(Failure::OutOfMemory, "there is not enough memory"),
                                      std::pair(Failure::Unknown, "the cause is unknown")}) {
    const auto provider = std::make_shared<NamelessProvider<TypeParam>>(failure);
    provider->setElements(this->ids);
    const GroupItemModel<TypeParam> model(provider);
    QString message;
    QObject::connect(&model, &GroupItemModelBase::failed, &model,
                     [&](const QString& told) { message = told; });

    EXPECT_FALSE(model.index(0, 0).data().isValid());

    EXPECT_TRUE(message.contains(text)) << text << ", but: " << message.toStdString();
  }
}

}
}
