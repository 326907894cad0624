// SPDX-License-Identifier: MIT
// Compact commands with descriptions, macros and commands of the host's own.

#include "CommandPattern/MacroCommand.h"
#include "GroupHosting/Support/CompactCommands.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// A command of the host's own that notes its calls and fails on demand.
class NotingCommand : public CommandBase {
public:
  NotingCommand(Calls& calls, const std::string& failing)
      : CommandBase("the host's"), m_calls(calls), m_failing(failing)
  {}
  void execute() override { note("host executes"); }
  void undo() override { note("host undoes"); }
  void redo() override { note("host redoes"); }
  bool isRedoCapable() override { return false; }

private:
  void note(const std::string& call)
  {
    m_calls.push_back(call);
    if (call == m_failing)
      throw std::runtime_error(call);
  }

  Calls& m_calls;
  const std::string& m_failing;
};

/// A command that is not one of ours: calls functions.
class OtherCommand : public CommandBase {
public:
  using Function = std::function<void()>;

  OtherCommand(Function execute, Function undo)
      : CommandBase("other"), m_execute(std::move(execute)), m_undo(std::move(undo))
  {}
  void execute() override { m_execute(); }
  void undo() override { m_undo(); }
  void redo() override { m_execute(); }
  bool isRedoCapable() override { return false; }

private:
  Function m_execute;
  Function m_undo;
};

template <class T>
using Provider = typename CompactTKGroupCmd<T>::Provider;

/// A host with two groups and an ungrouped element, and what its own commands note.
template <class T>
class CompactCommandOfAHost : public ::testing::Test {
protected:
  using Commands = std::list<std::shared_ptr<CommandBase>>;

  CompactCommandOfAHost()
  {
    host->makeMoveCommandBy([this](const T&, const std::vector<T>&) {
      return std::make_shared<NotingCommand>(calls, failing);
    });
  }

  /// Moves an element out of its group, next to the ungrouped one.
  auto moveOut()
  {
    return compact(host, [this](Provider<T> provider) {
      return std::make_shared<MoveTKGroupElementsCmd<T>>(provider, std::vector{a}, ungrouped, true);
    });
  }

  /// Moves an element to another group, renames that, and sorts everything.
  auto severalCommands()
  {
    return compact(host, [this](Provider<T> provider) {
      const auto id = host->idOf("B");
      return std::make_shared<MacroCommand>(
          Commands{std::make_shared<AddToTKGroupCmd<T>>(provider, std::vector{a}, id),
                   std::make_shared<RenameTKGroupCmd<T>>(provider, id, "0"),
                   std::make_shared<SortTKGroupsAlphabeticallyCmd<T>>(provider)});
    });
  }

  /// Whether macros of this platform reverse what they did when a sub-command fails. The contract
  /// does not ask for that, but those of the bundled platform do.
  static constexpr bool rollsBack()
  {
    return std::is_constructible_v<MacroCommand, Commands, std::string>;
  }

  Calls takeAllCalls()
  {
    auto all = host->takeCalls();
    all.insert(all.end(), calls.begin(), calls.end());
    calls.clear();
    return all;
  }

  T a, b, c, ungrouped;
  std::shared_ptr<RecordingHost<T>> host = hostWith(group("A", {a, b}), group("B", {c}));
  std::vector<TKGroup<T>> before = host->copyOfGroups();
  Calls calls;
  std::string failing;
};
TYPED_TEST_SUITE(CompactCommandOfAHost, ElementIdentifiers, KindName);

TYPED_TEST(CompactCommandOfAHost, RunsTheHostsOwnCommandInItsPlace)
{
  auto command = this->moveOut();

  command.execute();
  EXPECT_EQ(this->takeAllCalls(), (Calls{"getGroups", "createMoveCommand before", "getGroups",
                                         "setGroups", "host executes"}));
  const auto after = this->host->copyOfGroups();
  command.undo();
  EXPECT_EQ(this->takeAllCalls(), (Calls{"getGroups", "setGroups", "host undoes"}));
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  command.redo();
  EXPECT_EQ(this->takeAllCalls(), (Calls{"getGroups", "setGroups", "host redoes"}));
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
}

TYPED_TEST(CompactCommandOfAHost, KeepsTheHostsOwnCommandForAsLongAsItLives)
{
  std::weak_ptr<CommandBase> watched;
  this->host->makeMoveCommandBy([&](const TypeParam&, const std::vector<TypeParam>&) {
    const auto made = std::make_shared<NotingCommand>(this->calls, this->failing);
    watched = made;
    return made;
  });
  {
    auto command = this->moveOut();
    command.execute();

    EXPECT_EQ(watched.use_count(), 1);
    EXPECT_EQ(this->host.use_count(), 2);
    EXPECT_FALSE(command.hasChangedNothing());
  }
  EXPECT_TRUE(watched.expired());
}

TYPED_TEST(CompactCommandOfAHost, PutsTheGroupsBackWhenTheHostsOwnCommandFailsOnUndoOrRedo)
{
  auto command = this->moveOut();
  command.execute();
  const auto after = this->host->copyOfGroups();

  this->failing = "host undoes";
  EXPECT_THROW(command.undo(), std::runtime_error);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));

  this->failing = "";
  command.undo();
  this->failing = "host redoes";
  EXPECT_THROW(command.redo(), std::runtime_error);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(CompactCommandOfAHost, DoesNotRunTheHostsOwnCommandOnAForeignList)
{
  auto command = this->moveOut();
  command.execute();
  this->host->replaceGroups({});
  this->takeAllCalls();

  EXPECT_THROW(command.undo(), std::runtime_error);

  EXPECT_EQ(this->takeAllCalls(), (Calls{"getGroups", "host undoes", "host redoes"}));
  EXPECT_TRUE(this->host->groups().empty());
}

TYPED_TEST(CompactCommandOfAHost, LeavesTheGroupsAloneWhicheverAllocationFailsWithTheHostsOwn)
{
  bool succeeded = false;
  auto command = this->moveOut();
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    this->calls.reserve(10);
    try {
      const AllocationWatch watch(successes);
      command.execute();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(!this->rollsBack() || identical(this->host->copyOfGroups(), this->before))
          << successes;
      this->host->replaceGroups(this->before);
    }
    this->calls.clear();
  }
  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(CompactCommandOfAHost, MayBeAMacro)
{
  auto command = this->severalCommands();

  command.execute();
  const Calls onExecute{"getGroups", "setGroups",           "getGroups",           "renameGroup 0",
                        "getGroups", "getGroupMemberNames", "getGroupMemberNames", "setGroups"};
  EXPECT_EQ(this->takeAllCalls(), onExecute);
  const auto after = this->host->copyOfGroups();
  EXPECT_EQ(view(after).front().name, "0");
  command.undo();
  EXPECT_EQ(this->takeAllCalls(),
            (Calls{"getGroups", "setGroups", "renameGroup B", "getGroups", "setGroups"}));
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  command.redo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
}

TYPED_TEST(CompactCommandOfAHost, ReversesWhatAMacroDidWhenTheHostFailsAtItsEnd)
{
  for (const auto* const call : {"setGroups", "renameGroup 0", "getGroupMemberNames"}) {
    auto command = this->severalCommands();
    this->host->failIn(call);

    EXPECT_THROW(command.execute(), std::runtime_error);

    this->host->failIn("");
    EXPECT_TRUE(!this->rollsBack() || identical(this->host->copyOfGroups(), this->before)) << call;
    this->host->replaceGroups(this->before);
  }
}

TYPED_TEST(CompactCommandOfAHost, FollowsItsDescription)
{
  std::string text = "Add to Group: 1 element → B";
  CompactTKGroupCmd<TypeParam> command(
      this->host,
      [this](auto provider) {
        return std::make_shared<AddToTKGroupCmd<TypeParam>>(provider, std::vector{this->a},
                                                            this->host->idOf("B"));
      },
      [&text] { return text; });
  EXPECT_EQ(command.getDescription(), text);
  command.execute();
  EXPECT_EQ(command.getDescription(), text);

  text = "Ajouter au groupe : 1 élément → B";

  EXPECT_EQ(command.getDescription(), text);
}

TYPED_TEST(CompactCommandOfAHost, ReleasesTheFunctionThatMadeTheCommand)
{
  const auto kept = std::make_shared<int>();
  auto command = compact(this->host, [this, kept](auto provider) {
    return std::make_shared<RemoveFromTKGroupCmd<TypeParam>>(provider, std::vector{this->a});
  });
  EXPECT_GT(kept.use_count(), 1);

  command.execute();

  EXPECT_EQ(kept.use_count(), 1);
}

TYPED_TEST(CompactCommandOfAHost, RefusesToBeMadeWithoutACommand)
{
  using Command = CompactTKGroupCmd<TypeParam>;
  EXPECT_THROW(Command(this->host, nullptr), std::invalid_argument);

  Command command(this->host, [](auto) { return nullptr; });
  EXPECT_THROW(command.execute(), std::invalid_argument);

  EXPECT_EQ(this->takeAllCalls(), Calls{});
}

TYPED_TEST(CompactCommandOfAHost, TellsThatItHasChangedNothing)
{
  const auto id = this->host->idOf("A");
  this->host->nameElements({{this->a, "a"}, {this->b, "b"}});
  const auto hasChangedNothing = [this](auto make) {
    auto command = compact(this->host, make);
    command.execute();
    const bool nothing = command.hasChangedNothing();
    command.undo();
    command.redo();
    return nothing;
  };
  using Elements = std::vector<TypeParam>;

  EXPECT_TRUE(hasChangedNothing([](auto provider) {
    return std::make_shared<SortTKGroupsAlphabeticallyCmd<TypeParam>>(provider);
  }));
  EXPECT_TRUE(hasChangedNothing([this](auto provider) {
    return std::make_shared<RemoveFromTKGroupCmd<TypeParam>>(provider, Elements{this->ungrouped});
  }));
  EXPECT_TRUE(hasChangedNothing([id](auto provider) {
    return std::make_shared<RenameTKGroupCmd<TypeParam>>(provider, id, "A");
  }));
  EXPECT_TRUE(hasChangedNothing([this](auto provider) {
    return std::make_shared<AddToTKGroupCmd<TypeParam>>(provider, Elements{this->a}, Identifier());
  }));
  EXPECT_TRUE(hasChangedNothing([this](auto provider) {
    return std::make_shared<MoveTKGroupElementsCmd<TypeParam>>(provider, Elements{}, this->b, true);
  }));
  EXPECT_FALSE(hasChangedNothing([id](auto provider) {
    return std::make_shared<RenameTKGroupCmd<TypeParam>>(provider, id, "a");
  }));
  EXPECT_TRUE(this->host->groups() != view(this->before)) << "only the last one changed anything";
}

TYPED_TEST(CompactCommandOfAHost, MakesNoCallWhereTheOtherCommandMakesNone)
{
  auto command = compact(this->host, [this](auto provider) {
    return std::make_shared<AddToTKGroupCmd<TypeParam>>(provider, std::vector{this->a},
                                                        Identifier());
  });
  command.execute();
  this->takeAllCalls();

  command.undo();
  command.redo();

  EXPECT_EQ(this->takeAllCalls(), Calls{});
}

TYPED_TEST(CompactCommandOfAHost, KeepsTwoKilobytesOfAnElementThatMovesAmongAMillion)
{
  std::vector<TKGroup<TypeParam>> groups(1000);
  for (auto& group : groups)
    group.addGroupMembersAtIndex(std::vector<TypeParam>(1000), -1);
  this->host->replaceGroups(groups);
  const auto element = groups.front().getGroupMemberAtIndex(500);
  auto command = compact(this->host, [&](auto provider) {
    return std::make_shared<AddToTKGroupCmd<TypeParam>>(provider, std::vector{element},
                                                        groups.back().getId());
  });

  command.execute();

  EXPECT_LE(command.sizeInBytes(), 2048U);
  EXPECT_GT(command.sizeInBytes(), 2 * sizeof(element));
}

TYPED_TEST(CompactCommandOfAHost, TakesALittleMemoryForNamesAndCommandsOfTheHost)
{
  const std::string name(1000, 'n');
  auto rename = compact(this->host, [&](auto provider) {
    return std::make_shared<RenameTKGroupCmd<TypeParam>>(provider, this->host->idOf("A"), name);
  });
  auto moveOut = this->moveOut();

  rename.execute();
  moveOut.execute();

  EXPECT_GT(rename.sizeInBytes(), 1000U);
  EXPECT_LT(rename.sizeInBytes(), 2500U);
  EXPECT_LT(moveOut.sizeInBytes(), 2000U);
}

TYPED_TEST(CompactCommandOfAHost, ReversesTheNameWhenTheHostFailsAtTheEnd)
{
  auto command = compact(this->host, [this](Provider<TypeParam> provider) {
    const auto id = this->host->idOf("B");
    return std::make_shared<MacroCommand>(std::list<std::shared_ptr<CommandBase>>{
        std::make_shared<RenameTKGroupCmd<TypeParam>>(provider, id, "0"),
        std::make_shared<AddToTKGroupCmd<TypeParam>>(provider, std::vector{this->a}, id)});
  });
  this->host->failIn("setGroups");

  EXPECT_THROW(command.execute(), std::runtime_error);

  EXPECT_EQ(this->takeAllCalls(),
            (Calls{"getGroups", "renameGroup 0", "getGroups", "setGroups", "renameGroup B"}));
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(CompactCommandOfAHost, TellsTheFirstErrorWhenTheNameCannotBeReversed)
{
  auto command = compact(this->host, [this](Provider<TypeParam> provider) {
    const auto id = this->host->idOf("B");
    return std::make_shared<MacroCommand>(std::list<std::shared_ptr<CommandBase>>{
        std::make_shared<RenameTKGroupCmd<TypeParam>>(provider, id, "0"),
        std::make_shared<AddToTKGroupCmd<TypeParam>>(provider, std::vector{this->a}, id)});
  });
  int changes = 0;
  this->host->afterChanges([&changes] { // the name is changed: now everything fails
    if (++changes > 1)
      throw std::runtime_error(std::to_string(changes));
  });

  try {
    command.execute();
    FAIL() << "the host's error is lost";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "2");
  }
  EXPECT_EQ(changes, 3);
}

TYPED_TEST(CompactCommandOfAHost, TellsTheFirstErrorWhenReversingFailsToo)
{
  auto command = compact(this->host, [this](Provider<TypeParam> provider) {
    return std::make_shared<OtherCommand>(
        [this, provider] {
          provider->setGroups(this->before);
          provider->renameGroup(this->before.front().getId(), "New");
          provider->renameGroup(this->before.back().getId(), "New");
        },
        [this, provider] {
          provider->renameGroup(this->before.back().getId(), "B");
          provider->renameGroup(this->before.front().getId(), "A");
          provider->setGroups(this->before);
        });
  });
  command.execute();
  this->host->afterChanges([this] { // the name is back: now everything fails
    this->host->failIn("renameGroup New");
    this->host->replaceGroups({});
  });

  EXPECT_THROW(command.undo(), std::runtime_error);

  EXPECT_EQ(this->host->takeCalls().back(), "renameGroup New");
}

/// What commands of another kind do.
template <class T>
class CompactCommandOfAnotherKind : public CompactCommandOfAHost<T> {
protected:
  using Host = TKGroupProviderInterface<T>;
  using Step = std::function<void(Host&)>;

  CompactCommandOfAnotherKind()
  {
    one.pop_back();
    other.front() = one.back();
  }

  CompactTKGroupCmd<T> commandThat(Step executes, Step undoes)
  {
    return compact(this->host, [executes, undoes](Provider<T> provider) {
      return std::make_shared<OtherCommand>([executes, provider] { executes(*provider); },
                                            [undoes, provider] { undoes(*provider); });
    });
  }

  std::vector<TKGroup<T>> one = this->before;
  std::vector<TKGroup<T>> other = this->before;
  Identifier id = this->host->idOf("A");
  Step setOne = [this](Host& to) { to.setGroups(one); };
  Step setBoth = [this](Host& to) {
    to.setGroups(other);
    to.setGroups(one);
  };
  Step restore = [this](Host& to) { to.setGroups(this->before); };
  Step rename = [this](Host& to) { to.renameGroup(id, "New"); };
  Step renameAndSetOne = [this](Host& to) {
    to.renameGroup(id, "New");
    to.setGroups(one);
  };
  Step renameAnother = [](Host& to) { to.renameGroup(Identifier(), "A"); };
  Step nothing = [](Host&) {};
};
TYPED_TEST_SUITE(CompactCommandOfAnotherKind, ElementIdentifiers, KindName);

TYPED_TEST(CompactCommandOfAnotherKind, IsKeptWholeWhenUndoDoesNotReverseItsCalls)
{
  using Function = typename TestFixture::Step;
  const auto fail = [first = true](typename TestFixture::Host& to) mutable {
    if (std::exchange(first, false))
      throw std::logic_error("not yet");
    to.renameGroup(Identifier(), "");
  };

  for (const auto& [execute, undo] :
       std::vector<std::pair<Function, Function>>{{this->setOne, this->nothing},
                                                  {this->setOne, this->rename},
                                                  {this->setOne, this->setBoth},
                                                  {this->setOne, fail},
                                                  {this->rename, this->restore},
                                                  {this->rename, this->renameAnother},
                                                  {this->setBoth, this->restore},
                                                  {this->nothing, this->restore}}) {
    this->host->replaceGroups(this->before);
    auto command = this->commandThat(execute, undo);

    command.execute();
    const auto onExecute = this->takeAllCalls();
    command.undo();
    this->takeAllCalls();
    command.redo();

    EXPECT_EQ(this->takeAllCalls(), onExecute);
    EXPECT_FALSE(command.hasChangedNothing());
    EXPECT_EQ(command.getDescription(), "other");
    EXPECT_FALSE(command.isRedoCapable());
  }
}

TYPED_TEST(CompactCommandOfAnotherKind, IsUndoneWhenTheHostRefusesItsLastChange)
{
  auto first = this->commandThat(this->setOne, this->nothing);
  auto second = this->commandThat(this->renameAndSetOne, this->restore);
  auto third =
      this->commandThat(this->renameAndSetOne, [this](auto& to) { to.renameGroup(this->id, "A"); });

  this->host->failIn("setGroups");
  EXPECT_THROW(first.execute(), std::runtime_error);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  EXPECT_THROW(third.execute(), std::runtime_error);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  EXPECT_THROW(second.execute(), std::runtime_error);
}

TYPED_TEST(CompactCommandOfAnotherKind, TellsTheFirstErrorWhenItCannotBeUndoneEither)
{
  auto command =
      this->commandThat(this->renameAndSetOne, [this](auto& to) { to.renameGroup(this->id, "A"); });
  int changes = 0;
  this->host->afterChanges([&changes] { // the group is renamed: now everything fails
    if (++changes > 1)
      throw std::runtime_error(std::to_string(changes));
  });

  try {
    command.execute();
    FAIL() << "the host's error is lost";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "2");
  }
  EXPECT_EQ(changes, 3);
}

TYPED_TEST(CompactCommandOfAnotherKind, IsUndoneWhenMemoryRunsOutWhileItIsRead)
{
  this->host->afterChanges([] { EXPECT_EQ(std::current_exception(), nullptr); });
  const auto failOnce = [this, first = true](auto& to) mutable {
    if (std::exchange(first, false))
      throw std::bad_alloc();
    to.renameGroup(this->id, "A");
  };
  auto ofOneChange = this->commandThat(this->setOne, failOnce);
  auto ofTwoChanges = this->commandThat(this->renameAndSetOne, failOnce);

  EXPECT_THROW(ofOneChange.execute(), std::bad_alloc);
  EXPECT_EQ(this->takeAllCalls(), Calls{});
  EXPECT_THROW(ofTwoChanges.execute(), std::bad_alloc);
  EXPECT_EQ(this->takeAllCalls(), (Calls{"renameGroup New", "renameGroup A"}));
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(CompactCommandOfAnotherKind, RunsTheHostsOwnCommandWhenItIsKeptWhole)
{
  std::shared_ptr<CommandBase> ofHost;
  auto command = compact(this->host, [&](Provider<TypeParam> provider) {
    ofHost = provider->createMoveCommand(this->a, {}, true);
    return std::make_shared<OtherCommand>(
        [made = ofHost, first = true]() mutable {
          if (std::exchange(first, false))
            made->execute();
          else
            made->redo();
        },
        [made = ofHost, provider] {
          made->undo();
          provider->renameGroup(Identifier(), "");
        });
  });

  command.execute();
  EXPECT_EQ(this->calls, (Calls{"host executes"}));
  command.undo();
  command.redo();

  EXPECT_EQ(this->calls, (Calls{"host executes", "host undoes", "host redoes"}));
  EXPECT_EQ(ofHost->getDescription(), "the host's");
  EXPECT_FALSE(ofHost->isRedoCapable());
  EXPECT_EQ(ofHost->getSpeedRate(), NotingCommand(this->calls, this->failing).getSpeedRate());
}

TYPED_TEST(CompactCommandOfAnotherKind, MayAskTheHostForEverything)
{
  this->host->makeMoveCommandBy({});
  std::vector<TypeParam> found{this->a};
  auto command = this->commandThat(
      [&](auto& to) {
        found = to.getUngroupedElements();
        to.getElementName(this->a);
        EXPECT_EQ(to.createMoveCommand(this->a, {}, false), nullptr);
      },
      this->nothing);

  command.execute();

  EXPECT_TRUE(found.empty());
  EXPECT_EQ(this->takeAllCalls(),
            (Calls{"getUngroupedElements", "getElementName", "createMoveCommand after"}));
  EXPECT_TRUE(command.hasChangedNothing());
}

}
}
