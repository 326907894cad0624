// SPDX-License-Identifier: MIT
// What executing a command may copy. Groups have no move, so a list that grows or is built twice
// copies all of them once more; counting allocations shows it.

#include "Support/Allocations.h"
#include "Support/CommandCases.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

constexpr std::size_t groupCount = 100;

/// A host that takes lists without copying them, so that only the command's copies count.
template <class T>
class IndifferentHost : public RecordingHost<T> {
public:
  using RecordingHost<T>::RecordingHost;

  std::vector<TKGroup<T>>& getGroups() override { return groups; }
  void setGroups(const std::vector<TKGroup<T>>&) override {}

  std::vector<TKGroup<T>> groups;
};

template <class T>
class CopyCost : public ::testing::Test {
protected:
  CopyCost()
  {
    for (std::size_t i = 0; i < groupCount; ++i)
      host->groups.push_back(group(longNameA + std::to_string(i), {T(), T()}));
  }

  /// How many allocations one bare copy of the host's list takes.
  std::size_t bareCopy() const
  {
    const AllocationWatch watch;
    const auto copy = host->groups; // NOLINT(performance-unnecessary-copy-initialization)
    return watch.count();
  }

  static std::size_t cost(CommandBase& command)
  {
    const AllocationWatch watch;
    command.execute();
    return watch.count();
  }

  std::shared_ptr<IndifferentHost<T>> host = std::make_shared<IndifferentHost<T>>();
};
TYPED_TEST_SUITE(CopyCost, ElementIdentifiers, KindName);

TYPED_TEST(CopyCost, OfAddingIsTwoListsAndAFewAllocations)
{
  AddToTKGroupCmd<TypeParam> command(this->host, {TypeParam()}, this->host->groups[50].getId());

  EXPECT_LE(this->cost(command), 2 * this->bareCopy() + 5);
}

TYPED_TEST(CopyCost, OfCreatingIsTwoListsAndTheNamesOfTheGroups)
{
  CreateTKGroupCmd<TypeParam> command(this->host, {TypeParam()}, "New");
  const auto nameSet = 2 * groupCount + 15; // a node and a text each, and the table as it grows

  EXPECT_LE(this->cost(command), 2 * this->bareCopy() + nameSet);
}

TYPED_TEST(CopyCost, OfExecutingAgainOnALongerListIsNoHigher)
{
  AddToTKGroupCmd<TypeParam> command(this->host, {TypeParam()}, this->host->groups[50].getId());
  command.execute();
  this->host->groups.reserve(2 * groupCount);
  for (std::size_t i = 0; i < groupCount; ++i)
    this->host->groups.push_back(this->host->groups[i]);

  EXPECT_LE(this->cost(command), 2 * this->bareCopy() + 5);
}

TYPED_TEST(CopyCost, OfUndoAndRedoIsTheHostsAlone)
{
  CreateTKGroupCmd<TypeParam> command(this->host, {TypeParam()}, "New");
  command.execute();

  const AllocationWatch watch;
  command.undo();
  command.redo();

  EXPECT_EQ(watch.count(), 0U);
}

}
}
