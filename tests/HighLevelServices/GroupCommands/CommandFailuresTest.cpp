// SPDX-License-Identifier: MIT
// What every command leaves when the host or an allocation fails.

#include "Support/Allocations.h"
#include "Support/CommandCases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <stdexcept>

namespace Tarvik {
namespace {

template <class Case>
class FailingCommand : public CommandTest<Case> {};
TYPED_TEST_SUITE(FailingCommand, CommandCases, CaseName);

template <class Case>
class FailingSnapshotCommand : public CommandTest<Case> {};
TYPED_TEST_SUITE(FailingSnapshotCommand, SnapshotCommandCases, CaseName);

TYPED_TEST(FailingCommand, LeavesTheHostsGroupsAloneWhenTheHostFails)
{
  for (const auto& call : TypeParam::onExecute()) {
    auto command = TypeParam::make(this->host);
    this->host->failIn(call);

    EXPECT_THROW(command.execute(), std::runtime_error) << call;

    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << call;
  }
}

TYPED_TEST(FailingCommand, LeavesTheHostsGroupsAloneWhicheverAllocationFails)
{
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    auto command = TypeParam::make(this->host);
    try {
      const AllocationWatch watch(successes);
      command.execute();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << successes;
    }
  }
  EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(FailingCommand, ReleasesTheHostWhicheverAllocationFailsInItsConstructor)
{
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 1'000U);
    try {
      const AllocationWatch watch(successes);
      const auto command = TypeParam::make(this->host);
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(this->host.use_count(), 1) << successes;
    }
  }
}

TYPED_TEST(FailingSnapshotCommand, KeepsItsGroupsForRedoWhicheverAllocationFailsTheSecondTime)
{
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    this->host->replaceGroups(this->before);
    auto command = TypeParam::make(this->host);
    command.execute();
    const auto fewest = std::min(this->before.size(), this->host->groups().size());
    command.undo();
    try {
      const AllocationWatch watch(successes);
      command.execute();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      command.redo();
      EXPECT_GE(this->host->groups().size(), fewest) << successes;
    }
  }
}

}
}
