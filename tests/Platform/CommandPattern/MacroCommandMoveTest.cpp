// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Platform/CommandPattern/MacroTest.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace Tarvik {
namespace {

class MovedMacro : public MacroTest {};

TEST_F(MovedMacro, TakesItsCommandsAlongWhenMoved)
{
  MacroCommand source(commands("A B"), "Both");
  source.execute();

  MacroCommand target(std::move(source));
  source.undo(); // NOLINT: it is moved from, and does nothing

  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(source.getDescription(), "");
  EXPECT_EQ(target.getDescription(), "Both");
  target.undo();
  EXPECT_EQ(document.text(), "");
}

TEST_F(MovedMacro, ReleasesItsOwnCommandsWhenMoveAssigned)
{
  const auto old = append(document, "Old");
  MacroCommand target({old}, "Target");
  MacroCommand source(commands("A B"), "Both");

  auto& result = (target = std::move(source));

  EXPECT_EQ(&result, &target);
  EXPECT_EQ(old.use_count(), 1);
  EXPECT_EQ(target.getDescription(), "Both");
  EXPECT_EQ(source.getDescription(), ""); // NOLINT: it is moved from
  source.execute();
  target.execute();
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(MovedMacro, StaysWhatItIsWhenMovedToItself)
{
  MacroCommand both(commands("A B"), "Both");
  auto& alias = both;

  both = std::move(alias);
  both.execute();

  EXPECT_EQ(both.getDescription(), "Both");
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(MovedMacro, CanTakeThePlaceOfTheMacroThatHoldsIt)
{
  auto inner = macro("A B");
  auto& source = *inner;
  MacroCommand outer({std::move(inner), append(document, "C")}, "Outer");

  outer = std::move(source); // releases the last share of the source
  outer.execute();

  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(outer.getDescription(), "A");
}

TEST_F(MovedMacro, CanBeMovedWithoutFailureButNotCopied)
{
  static_assert(!std::is_copy_constructible_v<MacroCommand>);
  static_assert(!std::is_copy_assignable_v<MacroCommand>);
  static_assert(std::is_nothrow_move_constructible_v<MacroCommand>);
  static_assert(std::is_nothrow_move_assignable_v<MacroCommand>);
}

}
}
