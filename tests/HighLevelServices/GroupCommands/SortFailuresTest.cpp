// SPDX-License-Identifier: MIT
// What a sort that fails leaves for redo(): all groups, at worst in their old order. A list without
// them would delete the host's groups.

#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "Support/Allocations.h"
#include "Support/CommandCases.h"
#include "Support/GlobalLocale.h"
#include "Support/RecordingHost.h"
#include "Support/WatchedIdentifier.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <locale>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class FailingSort : public ::testing::Test {
protected:
  std::vector<std::string> namesOnRedo()
  {
    command.redo();
    std::vector<std::string> names;
    for (const auto& each : host->groups())
      names.push_back(each.name);
    std::sort(names.begin(), names.end());
    return names;
  }

  std::shared_ptr<RecordingHost<T>> host = hostForCommands<T>();
  SortTKGroupsAlphabeticallyCmd<T> command{host};
  const std::vector<std::string> allNames{longNameA, longNameB};
};
TYPED_TEST_SUITE(FailingSort, ElementIdentifiers, KindName);

/// Lowers no letter at all.
class FailingLetters : public std::ctype<char> {
protected:
  char do_tolower(char) const override { throw std::runtime_error("no letters"); }
  const char* do_tolower(char*, const char* end) const override { return end; }
};

/// How many members the groups have together.
template <class T>
std::size_t numberOfMembers(const std::vector<GroupView<T>>& groups)
{
  std::size_t number = 0;
  for (const auto& each : groups)
    number += each.members.size();
  return number;
}

TYPED_TEST(FailingSort, KeepsAllGroupsAndMembersWhicheverAllocationFailsOnceTheyAreCopied)
{
  const auto before = this->host->copyOfGroups();
  const auto allMembers = numberOfMembers(view(before));
  bool isCopied = false;
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    this->host->replaceGroups(before);
    this->command = SortTKGroupsAlphabeticallyCmd<TypeParam>(this->host);
    try {
      const AllocationWatch watch(successes);
      this->command.execute();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      const auto names = this->namesOnRedo();
      isCopied = isCopied || !names.empty();
      if (isCopied) {
        EXPECT_EQ(names, this->allNames) << successes;
        EXPECT_EQ(numberOfMembers(this->host->groups()), allMembers) << successes;
      }
    }
  }
  EXPECT_TRUE(isCopied) << "the copy was the last to allocate";
}

TYPED_TEST(FailingSort, KeepsAllGroupsWhenTheHostListsNoMembers)
{
  this->host->failIn("getGroupMemberNames");

  EXPECT_THROW(this->command.execute(), std::runtime_error);

  EXPECT_EQ(this->namesOnRedo(), this->allNames);
}

TYPED_TEST(FailingSort, KeepsAllGroupsWhenTheLocaleFails)
{
  {
    const GlobalLocale failing(std::locale(std::locale::classic(), new FailingLetters));
    EXPECT_THROW(this->command.execute(), std::runtime_error);
  }

  EXPECT_EQ(this->namesOnRedo(), this->allNames);
}

TYPED_TEST(FailingSort, KeepsTheHostsGroupsAsTheyWere)
{
  const auto before = this->host->copyOfGroups();
  this->host->failIn("getGroupMemberNames");

  EXPECT_THROW(this->command.execute(), std::runtime_error);

  EXPECT_TRUE(identical(this->host->copyOfGroups(), before));
}

TEST(FailingSortAndCopy, LetsTheFirstErrorThroughAndKeepsTheOldList)
{
  const auto host = hostForCommands<WatchedIdentifier>();
  SortTKGroupsAlphabeticallyCmd<WatchedIdentifier> command(host);
  command.execute();
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    try {
      const AllocationWatch watch(successes);
      const CopyWatch laterCopiesFail([] {
        if (AllocationWatch::hasFailed())
          throw std::runtime_error("no copies");
      });
      command.execute();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) { // any other error fails the test
      command.redo();
      EXPECT_EQ(host->groups().size(), 2U) << successes;
    }
  }
}

}
}
