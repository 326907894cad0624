// SPDX-License-Identifier: MIT
// What commands ask of the platform in ways that only a platform that writes it down can show.

#include "Recording.h"
#include "Support/CommandCases.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Tarvik {
namespace {

template <class T>
class CommandCalls : public ::testing::Test {};
TYPED_TEST_SUITE(CommandCalls, ElementIdentifiers, KindName);

TYPED_TEST(CommandCalls, TakeTheMacrosMemoryFromThePlatform)
{
  const auto host = hostForCommands<TypeParam>();
  auto command = MoveElementsCase<TypeParam>::make(host);
  const Recording recording;

  command.execute();

  const auto& calls = recording.calls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "new MacroCommand"), 1);
}

}
}
