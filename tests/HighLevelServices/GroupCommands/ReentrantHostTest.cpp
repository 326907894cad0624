// SPDX-License-Identifier: MIT
// A host that releases or executes a command while that command changes its groups.

#include "Support/CommandCases.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace Tarvik {
namespace {

template <class Case>
class ReentrantHost : public CommandTest<Case> {
protected:
  void releaseTheCommandAfterTheNextChange()
  {
    this->host->afterChanges([this] { command.reset(); });
  }

  std::shared_ptr<CommandBase> command{new auto(Case::make(this->host))};
};
TYPED_TEST_SUITE(ReentrantHost, CommandCases, CaseName);

TYPED_TEST(ReentrantHost, MayReleaseACommandThatExecutes)
{
  this->releaseTheCommandAfterTheNextChange();

  this->command->execute();

  EXPECT_EQ(this->command, nullptr);
  EXPECT_EQ(this->host.use_count(), 1);
  EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(ReentrantHost, MayReleaseACommandThatIsUndone)
{
  this->command->execute();
  this->releaseTheCommandAfterTheNextChange();

  this->command->undo();

  EXPECT_EQ(this->command, nullptr);
  EXPECT_EQ(this->host.use_count(), 1);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(ReentrantHost, MayReleaseACommandThatIsRedone)
{
  this->command->execute();
  const auto after = this->host->copyOfGroups();
  this->command->undo();
  this->releaseTheCommandAfterTheNextChange();

  this->command->redo();

  EXPECT_EQ(this->command, nullptr);
  EXPECT_EQ(this->host.use_count(), 1);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
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
