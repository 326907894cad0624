// SPDX-License-Identifier: MIT
#pragma once

#include "Support/CommandCases.h"

#include <gtest/gtest.h>

#include <memory>

namespace Tarvik {

/// A fixture for what the seven commands promise, and the compact commands that run them as well.
template <class Case>
class CommandPromises : public CommandTest<Case> {
protected:
  void expectExactlyWhatWasThereWheneverItIsUndone()
  {
    command->execute();
    const auto after = this->host->copyOfGroups();

    command->undo();
    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
    command->redo();
    EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
    command->undo();
    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  }

  void expectThatTheHostMayReleaseItWhileItExecutes()
  {
    releaseTheCommandAfterTheNextChange();

    command->execute();

    expectNoCommand();
    EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));
  }

  void expectThatTheHostMayReleaseItWhileItIsUndone()
  {
    command->execute();
    releaseTheCommandAfterTheNextChange();

    command->undo();

    expectNoCommand();
    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  }

  void expectThatTheHostMayReleaseItWhileItIsRedone()
  {
    command->execute();
    const auto after = this->host->copyOfGroups();
    command->undo();
    releaseTheCommandAfterTheNextChange();

    command->redo();

    expectNoCommand();
    EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
  }

  std::shared_ptr<CommandBase> command; ///< made by the derived fixture

private:
  void releaseTheCommandAfterTheNextChange()
  {
    this->host->afterChanges([this] { command.reset(); });
  }

  void expectNoCommand() const
  {
    EXPECT_EQ(command, nullptr);
    EXPECT_EQ(this->host.use_count(), 1) << "something still shares the host";
  }
};

}
