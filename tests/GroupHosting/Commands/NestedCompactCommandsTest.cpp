// SPDX-License-Identifier: MIT
// Exceptions that leave many nested compact commands, on the stack of a Windows program. See
// Platform/CommandPattern/DeepNestingTest.cpp.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"

#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "Support/RecordingHost.h"
#include "Support/ThreadWithStack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <memory>
#include <stdexcept>
#include <vector>

namespace Tarvik {
namespace {

constexpr std::size_t stackOfAWindowsProgram = (hasSanitizer ? 8192 : 1024) * std::size_t{1024};
constexpr int depth = 100;

/// Does nothing, or fails.
class Switch : public CommandBase {
public:
  explicit Switch(const bool& isFailing) : CommandBase("switch"), m_isFailing(isFailing) {}
  void execute() override { act(); }
  void undo() override { act(); }
  void redo() override { act(); }

private:
  void act() const
  {
    if (m_isFailing)
      throw std::runtime_error("the innermost command");
  }

  const bool& m_isFailing;
};

/// Moves an element out of a group of each host. The host's own command for that moves the element
/// of the next host; that of the last host fails on demand.
template <class T>
class NestedCompactCommands : public ::testing::Test {
protected:
  NestedCompactCommands()
  {
    for (int i = 0; i < depth; ++i)
      m_commands = moveOut(newHost(m_commands));
  }

  CommandBase& outermost() { return *m_commands; }

  /// How many hosts have the element in its group.
  auto groupedElements() const
  {
    return std::count_if(m_hosts.begin(), m_hosts.end(),
                         [](const auto& host) { return !host->groups().front().members.empty(); });
  }

  bool isFailing = false;

private:
  using Host = std::shared_ptr<RecordingHost<T>>;

  Host newHost(const std::shared_ptr<CommandBase>& moveCommand)
  {
    m_hosts.push_back(hostWith(group("A", {m_element})));
    m_hosts.back()->afterChanges([] { EXPECT_EQ(std::current_exception(), nullptr); });
    m_hosts.back()->makeMoveCommandBy([=](const auto&, const auto&) { return moveCommand; });
    return m_hosts.back();
  }

  std::shared_ptr<CommandBase> moveOut(const Host& host)
  {
    return std::make_shared<CompactTKGroupCmd<T>>(host, [this](auto provider) {
      return std::make_shared<MoveTKGroupElementsCmd<T>>(provider, std::vector{m_element}, T(),
                                                         true);
    });
  }

  T m_element;
  std::vector<Host> m_hosts;
  std::shared_ptr<CommandBase> m_commands = std::make_shared<Switch>(isFailing);
};
TYPED_TEST_SUITE(NestedCompactCommands, ElementIdentifiers, KindName);

TYPED_TEST(NestedCompactCommands, ChangeNothingWhenTheInnermostOneFails)
{
  ThreadWithStack::run(stackOfAWindowsProgram, [this] {
    for (const auto operation : {&CommandBase::execute, &CommandBase::undo, &CommandBase::redo}) {
      const auto before = this->groupedElements();
      this->isFailing = true;
      EXPECT_THROW((this->outermost().*operation)(), std::runtime_error);
      EXPECT_EQ(this->groupedElements(), before);

      this->isFailing = false;
      (this->outermost().*operation)();
      EXPECT_EQ(this->groupedElements(), depth - before);
    }
  });
}

}
}
