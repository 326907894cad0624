// SPDX-License-Identifier: MIT
#include "HighLevelServices/Model/Shrinking.h"

#include "HighLevelServices/Model/RandomOperations.h"
#include "HighLevelServices/Model/Runner.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Tarvik::Modelling {
namespace {

/// A host that loses a member each time it is given groups for the seventh time.
template <class T>
class ForgetfulHost : public ModelHost<T> {
public:
  void setGroups(const std::vector<TKGroup<T>>& groups) override
  {
    ModelHost<T>::setGroups(groups);
    if (++m_times % 7 != 0)
      return;
    auto& own = this->getGroups();
    const auto filled = std::find_if(
        own.begin(), own.end(), [](const auto& group) { return group.numberOfGroupMembers() > 0; });
    if (filled != own.end())
      filled->removeGroupMember(T(filled->getGroupMemberAtIndex(0)));
  }

private:
  int m_times = 0;
};

/// A host that renames no group.
template <class T>
class StubbornHost : public ModelHost<T> {
public:
  void renameGroup(const Identifier&, const std::string&) override {}
};

template <class Host>
bool failsOn(const Operations& operations)
{
  return run<typename Host::Element>(operations, std::make_shared<Host>()).has_value();
}

/// The shortest forms of several long sequences that fail on the host.
template <class Host>
std::vector<Operations> shrunkFailures()
{
  std::vector<Operations> result;
  for (std::uint64_t seed = 1; result.size() < 20; ++seed) {
    const auto operations = randomOperations(seed, 200);
    if (failsOn<Host>(operations))
      result.push_back(shrunk(operations, failsOn<Host>));
  }
  return result;
}

template <class Host>
void expectThatNothingCanBeLeftOut(const Operations& operations)
{
  for (std::size_t i = 0; i < operations.size(); ++i) {
    auto fewer = operations;
    fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
    EXPECT_FALSE(failsOn<Host>(fewer)) << text(operations) << "without " << i + 1;
  }
}

template <class T>
class Shrinking : public ::testing::Test {};
TYPED_TEST_SUITE(Shrinking, ElementIdentifiers, KindName);

TYPED_TEST(Shrinking, FindsTheCommandThatAHostDoesNotObeyAndTheGroupItNeeds)
{
  using Host = StubbornHost<TypeParam>;
  for (const auto& shortest : shrunkFailures<Host>()) {
    ASSERT_EQ(shortest.size(), 2U) << text(shortest);
    EXPECT_EQ(text(shortest[1]).find("rename group 0 to "), 0U) << text(shortest);
    expectThatNothingCanBeLeftOut<Host>(shortest);
  }
}

/// There are many shortest sequences here, of three operations and more: every command, undo and
/// redo counts, as do those that are done in the end.
TYPED_TEST(Shrinking, LeavesAFewOperationsForAHostThatLosesAMemberEverySeventhTime)
{
  using Host = ForgetfulHost<TypeParam>;
  for (const auto& shortest : shrunkFailures<Host>()) {
    ASSERT_TRUE(failsOn<Host>(shortest)) << text(shortest);
    EXPECT_GE(shortest.size(), 3U) << text(shortest);
    EXPECT_LE(shortest.size(), 8U) << text(shortest);
    expectThatNothingCanBeLeftOut<Host>(shortest);
  }
}

TEST(ShrinkingOfOperations, LeavesWhatTheFailureNeedsInItsOrder)
{
  const auto needed = [](const Operations& operations) {
    const auto sort = std::find_if(operations.begin(), operations.end(), [](const auto& each) {
      return std::holds_alternative<SortGroups>(each);
    });
    return std::count_if(sort, operations.end(),
                         [](const auto& each) { return std::holds_alternative<Undo>(each); }) >= 2;
  };
  const auto operations = randomOperations(1, 500);
  ASSERT_TRUE(needed(operations));

  EXPECT_EQ(text(shrunk(operations, needed)), "  1. sort\n  2. undo\n  3. undo\n");
}

TEST(ShrinkingOfOperations, LeavesOutTheElementsThatDoNotMatter)
{
  const auto hasBeta = [](const Operations& operations) {
    return text(operations).find("Beta1") != std::string::npos;
  };
  const Operations operations{RemoveElements{{0, 4, 4, 5}}, Undo{}, AddElements{{1, 4}, 3, 2}};

  EXPECT_EQ(text(shrunk(operations, hasBeta)), "  1. add [Beta1] to group 0\n");
}

/// Two operations that fail only together with each other: no single one can be left out.
TEST(ShrinkingOfOperations, LeavesOutPairs)
{
  const auto asManyRedos = [](const Operations& operations) {
    int undos = 0;
    int redos = 0;
    for (const auto& each : operations) {
      undos += std::holds_alternative<Undo>(each) ? 1 : 0;
      redos += std::holds_alternative<Redo>(each) ? 1 : 0;
    }
    return undos == redos && undos > 0;
  };

  EXPECT_EQ(text(shrunk({Undo{}, Undo{}, Undo{}, Redo{}, Redo{}, Redo{}}, asManyRedos)),
            "  1. undo\n  2. redo\n");
}

TEST(ShrinkingOfOperations, NeverChangesWhatDoesNotGetSimpler)
{
  const auto always = [](const Operations&) { return true; };

  EXPECT_EQ(text(shrunk({Undo{}, Redo{}}, always)), "");
}

}
}
