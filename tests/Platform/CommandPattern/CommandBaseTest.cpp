// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandBase.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace Tarvik {
namespace {

class PlainCommand : public CommandBase {
public:
  using CommandBase::CommandBase;
  void execute() override {}
  void undo() override {}
  void redo() override {}
};

/// Overrides all that a command may override.
class OwnWayCommand : public PlainCommand {
public:
  OwnWayCommand(std::string& log) : PlainCommand("Base"), m_log(log) {}
  ~OwnWayCommand() override { m_log += "destroyed"; }

  void execute() override { m_log += "execute "; }
  void undo() override { m_log += "undo "; }
  void redo() override { m_log += "redo "; }
  const std::string& getDescription() const override { return m_description; }
  LegacyProgress::Speed::Rate getSpeedRate() override { return LegacyProgress::Speed::Rate::Long; }
  bool isRedoCapable() override { return false; }

private:
  std::string& m_log;
  std::string m_description = "Own";
};

TEST(Command, HasTheGivenDescription)
{
  for (const std::string description : {"", "Remove pumps", "Gr\xc3\xbc\xc3\x9f", "  kept  "})
    EXPECT_EQ(PlainCommand(description).getDescription(), description);
}

TEST(Command, KeepsADescriptionWithAZeroByte)
{
  const std::string description("a\0b", 3);

  EXPECT_EQ(PlainCommand(description).getDescription(), description);
}

TEST(Command, IsInstantAndRedoCapableUnlessOverridden)
{
  PlainCommand command("A");

  EXPECT_EQ(command.getSpeedRate(), LegacyProgress::Speed::Rate::Instant);
  EXPECT_TRUE(command.isRedoCapable());
}

TEST(Command, CanBeOverriddenInEveryOperation)
{
  std::string log;
  {
    const std::unique_ptr<CommandBase> command = std::make_unique<OwnWayCommand>(log);

    command->execute();
    command->undo();
    command->redo();

    EXPECT_EQ(command->getDescription(), "Own");
    EXPECT_EQ(command->getSpeedRate(), LegacyProgress::Speed::Rate::Long);
    EXPECT_FALSE(command->isRedoCapable());
  }
  EXPECT_EQ(log, "execute undo redo destroyed");
}

TEST(Command, TakesItsDescriptionAlongWhenMoved)
{
  for (const std::string description : {"A", "A description too long to be kept in the string"}) {
    PlainCommand source(description);

    const PlainCommand target(std::move(source));

    EXPECT_EQ(target.getDescription(), description);
    EXPECT_EQ(source.getDescription(), ""); // NOLINT: it is moved from
  }
}

TEST(Command, TakesItsDescriptionAlongWhenMoveAssigned)
{
  for (const std::string description : {"A", "A description too long to be kept in the string"}) {
    PlainCommand source(description);
    PlainCommand target("Another description, which is just as long as that");

    auto& result = (target = std::move(source));

    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.getDescription(), description);
    EXPECT_EQ(source.getDescription(), ""); // NOLINT: it is moved from
  }
}

TEST(Command, StaysWhatItIsWhenMovedToItself)
{
  for (const std::string description : {"A", "A description too long to be kept in the string"}) {
    PlainCommand command(description);
    auto& alias = command;

    command = std::move(alias);

    EXPECT_EQ(command.getDescription(), description);
  }
}

TEST(Command, CanBeMovedWithoutFailureButNotCopied)
{
  static_assert(!std::is_copy_constructible_v<PlainCommand>);
  static_assert(!std::is_copy_assignable_v<PlainCommand>);
  static_assert(std::is_nothrow_move_constructible_v<PlainCommand>);
  static_assert(std::is_nothrow_move_assignable_v<PlainCommand>);
  static_assert(std::is_abstract_v<CommandBase>);
  static_assert(std::has_virtual_destructor_v<CommandBase>);
  static_assert(!std::is_convertible_v<std::string, PlainCommand>);
}

TEST(Command, HasRatesFromShortestToLongest)
{
  using LegacyProgress::Speed::Rate;

  static_assert(Rate::Instant < Rate::Short && Rate::Short < Rate::Long);
}

}
}
