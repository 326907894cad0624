// SPDX-License-Identifier: MIT
// Errors and objects that only the program knows pass through the libraries and back: errors keep
// their type, objects reach their own destructor. All parts share one C++ runtime for that.

#include "CommandPattern/CommandHistory.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// An error that only this program knows.
struct HostError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

template <class T>
class RefusingHost : public RecordingHost<T> {
public:
  using RecordingHost<T>::RecordingHost;
  void setGroups(const std::vector<TKGroup<T>>& groups) override
  {
    throw HostError("no room for " + std::to_string(groups.size()) + " groups");
  }
};

/// A host's own command that calls a function when it is destroyed.
class MoveOfTheHost : public CommandBase {
public:
  explicit MoveOfTheHost(std::function<void()> destroyed)
      : CommandBase("move"), m_destroyed(std::move(destroyed))
  {}
  MoveOfTheHost(const MoveOfTheHost&) = delete;
  MoveOfTheHost& operator=(const MoveOfTheHost&) = delete;
  ~MoveOfTheHost() override { m_destroyed(); }
  void execute() override {}
  void undo() override {}
  void redo() override {}

private:
  std::function<void()> m_destroyed;
};

template <class T>
class LibraryBoundary : public ::testing::Test {};
TYPED_TEST_SUITE(LibraryBoundary, ElementIdentifiers, KindName);

TYPED_TEST(LibraryBoundary, LetsAnErrorOfTheHostThroughCommandAndHistory)
{
  const auto host = std::make_shared<RefusingHost<TypeParam>>();
  CommandHistory history;
  std::string error;

  try {
    history.execute(
        std::make_shared<CreateTKGroupCmd<TypeParam>>(host, std::vector<TypeParam>{}, "New"));
  } catch (const HostError& caught) {
    error = caught.what();
  }

  EXPECT_EQ(error, "no room for 1 groups");
}

TYPED_TEST(LibraryBoundary, DestroysACommandOfTheHostsWithTheLibrarysOwn)
{
  const auto [a, t] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}));
  bool isDestroyed = false;
  host->makeMoveCommandBy([&](const TypeParam&, const std::vector<TypeParam>&) {
    return std::make_shared<MoveOfTheHost>([&] { isDestroyed = true; });
  });
  CommandHistory history;
  history.execute(
      std::make_shared<MoveTKGroupElementsCmd<TypeParam>>(host, std::vector{a}, t, true));
  EXPECT_FALSE(isDestroyed);

  history.clear();

  EXPECT_TRUE(isDestroyed);
}

}
}
