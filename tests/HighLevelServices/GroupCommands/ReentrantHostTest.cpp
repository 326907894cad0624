// SPDX-License-Identifier: MIT
// A host that releases or executes a command while that command changes its groups.

#include "Support/PromisesOfCommands.h"

#include <gtest/gtest.h>

#include <utility>

namespace Tarvik {
namespace {

template <class Case>
class ReentrantHost : public CommandPromises<Case> {
protected:
  ReentrantHost() { this->command.reset(new auto(Case::make(this->host))); }
};
TYPED_TEST_SUITE(ReentrantHost, CommandCases, CaseName);

TYPED_TEST(ReentrantHost, MayReleaseACommandThatExecutes)
{
  this->expectThatTheHostMayReleaseItWhileItExecutes();
}

TYPED_TEST(ReentrantHost, MayReleaseACommandThatIsUndone)
{
  this->expectThatTheHostMayReleaseItWhileItIsUndone();
}

TYPED_TEST(ReentrantHost, MayReleaseACommandThatIsRedone)
{
  this->expectThatTheHostMayReleaseItWhileItIsRedone();
}

TYPED_TEST(ReentrantHost, MayExecuteACommandThatExecutes)
{
  this->command->execute();
  this->command->execute();
  const auto expected = this->host->groups();
  this->host->replaceGroups(this->before);
  auto nested = TypeParam::make(this->host);
  bool isFirst = true;
  this->host->afterChanges([&] {
    if (std::exchange(isFirst, false))
      nested.execute();
  });

  nested.execute();

  EXPECT_EQ(this->host->groups(), expected);
}

}
}
