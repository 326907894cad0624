// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Platform/CommandPattern/MacroTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace Tarvik {
namespace {

class MacroWithHooks : public MacroTest {};

TEST_F(MacroWithHooks, CallsItsHooksAroundEveryCommandThatItExecutes)
{
  HookedMacro hooked(document, commands("A B"));

  hooked.execute();

  EXPECT_EQ(document.takeCalls(), "prepare A, execute A, finalize A, "
                                  "prepare B, execute B, finalize B");
}

TEST_F(MacroWithHooks, CallsNoHookWhenItUndoesAndRedoes)
{
  HookedMacro hooked(document, commands("A B"));
  hooked.execute();
  document.takeCalls();

  hooked.undo();
  hooked.redo();

  EXPECT_EQ(document.takeCalls(), "undo B, undo A, redo A, redo B");
}

TEST_F(MacroWithHooks, PassesTheCommandItselfToItsHooks)
{
  class Collector : public MacroCommand {
  public:
    using MacroCommand::MacroCommand;
    std::vector<const CommandBase*> seen;

  protected:
    void prepareExecute(std::shared_ptr<CommandBase> command) override
    {
      seen.push_back(command.get());
    }
    void finalizeExecute(std::shared_ptr<CommandBase> command) override
    {
      seen.push_back(command.get());
    }
  };
  const auto a = append(document, "A");
  const auto b = append(document, "B");
  Collector collector({a, b});

  collector.execute();

  EXPECT_EQ(collector.seen, (std::vector<const CommandBase*>{a.get(), a.get(), b.get(), b.get()}));
}

}
}
