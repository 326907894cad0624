// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Platform/CommandPattern/MacroTest.h"

#include <gtest/gtest.h>

#include <memory>

namespace Tarvik {
namespace {

using LegacyProgress::Speed::Rate;

class RatedCommand : public AppendCommand {
public:
  RatedCommand(Document& document, Rate rate) : AppendCommand(document, "Rated"), m_rate(rate) {}
  Rate getSpeedRate() override { return m_rate; }

private:
  Rate m_rate;
};

/// What a macro answers about itself.
class MacroQueries : public MacroTest {
protected:
  std::shared_ptr<CommandBase> rated(Rate rate)
  {
    return std::make_shared<RatedCommand>(document, rate);
  }
};

TEST_F(MacroQueries, GiveTheDescriptionOfTheConstructor)
{
  EXPECT_EQ(MacroCommand(commands("A B"), "Both").getDescription(), "Both");
  EXPECT_EQ(MacroCommand({}, "None").getDescription(), "None");
}

TEST_F(MacroQueries, GiveTheFirstCommandsDescriptionWhenTheConstructorGotNone)
{
  EXPECT_EQ(macro("A B")->getDescription(), "A");
  EXPECT_EQ(MacroCommand({macro("C D"), append(document, "E")}).getDescription(), "C");
}

TEST_F(MacroQueries, GiveNoDescriptionWhenThereIsNone)
{
  EXPECT_EQ(MacroCommand({}).getDescription(), "");
  EXPECT_EQ(MacroCommand({append(document, "")}).getDescription(), "");
  EXPECT_EQ(MacroCommand({std::make_shared<MacroCommand>(SubCommands{})}).getDescription(), "");
}

TEST_F(MacroQueries, GiveTheRateOfTheLongestCommand)
{
  const auto instant = rated(Rate::Instant);
  const auto brief = rated(Rate::Short);
  const auto lengthy = rated(Rate::Long);

  EXPECT_EQ(MacroCommand({}).getSpeedRate(), Rate::Instant);
  EXPECT_EQ(MacroCommand({instant, instant}).getSpeedRate(), Rate::Instant);
  EXPECT_EQ(MacroCommand({instant, brief, instant}).getSpeedRate(), Rate::Short);
  EXPECT_EQ(MacroCommand({lengthy, brief}).getSpeedRate(), Rate::Long);
  EXPECT_EQ(MacroCommand({brief, lengthy}).getSpeedRate(), Rate::Long);
  EXPECT_EQ(MacroCommand({instant, std::make_shared<MacroCommand>(SubCommands{lengthy})}) //
                .getSpeedRate(),
            Rate::Long);
}

TEST_F(MacroQueries, SayThatRedoIsPossibleWhenItIsForAllCommands)
{
  EXPECT_TRUE(MacroCommand({}).isRedoCapable());
  EXPECT_TRUE(macro("A B")->isRedoCapable());
  EXPECT_FALSE(macro("A! B")->isRedoCapable());
  EXPECT_FALSE(macro("A B!")->isRedoCapable());
  EXPECT_FALSE(MacroCommand({append(document, "A"), macro("B C!")}).isRedoCapable());
}

}
}
