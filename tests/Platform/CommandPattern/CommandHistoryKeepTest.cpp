// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace Tarvik {
namespace {

class KeptCommand : public HistoryTest {
protected:
  std::shared_ptr<CommandBase> executed(const std::string& name)
  {
    auto command = append(document, name);
    command->execute();
    return command;
  }
};

TEST_F(KeptCommand, IsNotExecutedAgainAndIsUndoneAsOthersAre)
{
  const auto a = executed("A");
  document.takeCalls();

  EXPECT_TRUE(history.keep(a));

  EXPECT_EQ(document.takeCalls(), "");
  EXPECT_EQ(view(history), "* A |");
  history.undo();
  EXPECT_EQ(document.text(), "");
  history.redo();
  EXPECT_EQ(document.text(), "A");
}

TEST_F(KeptCommand, CutsOffWhatCouldBeRedoneAndIsTold)
{
  execute("A B");
  history.undo();
  int told = 0;
  const auto subscription = history.subscribe([&](const auto&) { ++told; });

  history.keep(executed("C"));

  EXPECT_EQ(view(history), "* A C |");
  EXPECT_EQ(told, 1);
}

TEST_F(KeptCommand, CountsAgainstLimitAndBudget)
{
  history.setLimit(2);
  history.setBudget(100);

  history.keep(executed("A"), 10);
  history.keep(executed("B"), 10);
  history.keep(executed("C"), 95);

  EXPECT_EQ(view(history), "C |");
  EXPECT_EQ(history.sizeInBytes(), 95U);
}

TEST_F(KeptCommand, IsRefusedWhenNull)
{
  EXPECT_THROW(history.keep(nullptr), std::invalid_argument);

  EXPECT_EQ(view(history), "* |");
}

#if !defined(_MSC_VER) // allocations in DLLs cannot be counted there

TEST_F(KeptCommand, IsNotKeptWhenThereIsNoMemoryForIt)
{
  const auto a = executed("A");
  {
    const AllocationWatch watch(0);
    EXPECT_THROW(history.keep(a), std::bad_alloc);
  }

  EXPECT_EQ(view(history), "* |");
  EXPECT_EQ(a.use_count(), 1);
}

#endif

}
}
