// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"

#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

constexpr bool before = true;
constexpr bool after = false;

template <class T>
class MoveElements : public ::testing::Test {
protected:
  static void move(const std::shared_ptr<RecordingHost<T>>& host,
                   const std::vector<T>& elements,
                   const T& target,
                   bool insertBefore)
  {
    MoveTKGroupElementsCmd<T>(host, elements, target, insertBefore).execute();
  }
};
TYPED_TEST_SUITE(MoveElements, ElementIdentifiers, KindName);

/// A host's own command that writes down when it runs.
class NotingCommand : public CommandBase {
public:
  explicit NotingCommand(std::function<void(const std::string&)> note)
      : CommandBase("host's move"), m_note(std::move(note))
  {}
  void execute() override { m_note("execute"); }
  void undo() override { m_note("undo"); }
  void redo() override { m_note("redo"); }

private:
  std::function<void(const std::string&)> m_note;
};

TYPED_TEST(MoveElements, PlacesThemBeforeAMemberOfTheSameGroup)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G", {a, b, c}));

  this->move(host, {c}, b, before);

  EXPECT_EQ(host->groups(), list(group("G", {a, c, b})));
}

TYPED_TEST(MoveElements, PlacesThemAfterAMemberOfTheSameGroup)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G", {a, b, c}));

  this->move(host, {a}, b, after);

  EXPECT_EQ(host->groups(), list(group("G", {b, a, c})));
}

TYPED_TEST(MoveElements, PlacesThemAfterTheLastMember)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G", {a, b, c}));

  this->move(host, {a, b}, c, after);

  EXPECT_EQ(host->groups(), list(group("G", {c, a, b})));
}

TYPED_TEST(MoveElements, PlacesThemBeforeTheFirstMember)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G", {a, b, c}));

  this->move(host, {c, b}, a, before);

  EXPECT_EQ(host->groups(), list(group("G", {c, b, a})));
}

TYPED_TEST(MoveElements, TakesThemFromOtherGroupsAndFromNone)
{
  const auto [a, b, x, y] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("From", {x}), group("To", {a, b}));

  this->move(host, {y, x}, b, before);

  EXPECT_EQ(host->groups(), list(group<TypeParam>("From", {}), group("To", {a, y, x, b})));
}

TYPED_TEST(MoveElements, CountsAnElementThatIsGivenTwiceOnce)
{
  const auto [a, x, y] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G", {a}));

  this->move(host, {x, y, x}, a, before);

  EXPECT_EQ(host->groups(), list(group("G", {x, y, a})));
}

TYPED_TEST(MoveElements, CountsTheFirstGroupThatHoldsTheTarget)
{
  const auto [a, b, t, x] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("A", {a, t, b}), group("B", {t}));

  this->move(host, {x}, t, after);

  EXPECT_EQ(host->groups(), list(group("A", {a, t, x, b}), group("B", {t})));
}

TYPED_TEST(MoveElements, CountsTheFirstPlaceOfTheTargetInItsGroup)
{
  const auto [a, t, x] = distinct<TypeParam, 3>();
  auto doubled = group("G", {a});
  doubled.addGroupMembersAtIndex({t, t}, 0);
  const auto host = hostWith(doubled);

  this->move(host, {x}, t, before);

  EXPECT_EQ(host->groups().front().members, (std::vector<TypeParam>{x, t, t, a}));
}

TYPED_TEST(MoveElements, MovesTheTargetItselfLikeAnyOther)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("G", {a, b, c}));

  this->move(host, {c, b}, b, before); // before position 1: none of them is earlier

  EXPECT_EQ(host->groups(), list(group("G", {a, c, b})));
}

TYPED_TEST(MoveElements, ReadsTheGroupsOnceMoreInTheSubCommand)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("G", {a, b}));
  MoveTKGroupElementsCmd<TypeParam> command(host, {b}, a, before);

  command.execute();
  EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "getGroups", "setGroups"}));
  command.undo();
  EXPECT_EQ(host->groups(), list(group("G", {a, b})));
  command.redo();
  EXPECT_EQ(host->groups(), list(group("G", {b, a})));
  EXPECT_EQ(host->takeCalls(), (Calls{"setGroups", "setGroups"}));
}

TYPED_TEST(MoveElements, TakesThemOutOfTheirGroupsWhenNoGroupHoldsTheTarget)
{
  const auto [a, x, y, t] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("A", {x, a}), group("B", {y}));
  const auto groupsBefore = host->copyOfGroups();
  MoveTKGroupElementsCmd<TypeParam> command(host, {y, x, y}, t, after);

  command.execute();
  EXPECT_EQ(host->takeCalls(),
            (Calls{"getGroups", "createMoveCommand after", "getGroups", "setGroups"}));
  EXPECT_EQ(host->groups(), list(group("A", {a}), group<TypeParam>("B", {})));

  command.undo();
  EXPECT_TRUE(identical(host->copyOfGroups(), groupsBefore));
  command.redo();
  EXPECT_EQ(host->groups(), list(group("A", {a}), group<TypeParam>("B", {})));
}

TYPED_TEST(MoveElements, RunsTheHostsCommandAfterTheRemoval)
{
  const auto [a, x, t] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, x}));
  std::vector<std::pair<std::string, std::size_t>> runs; // with the members left in the group
  TypeParam askedTarget = TypeParam::getInvalidId();
  std::vector<TypeParam> askedElements;
  host->makeMoveCommandBy([&](const TypeParam& target, const std::vector<TypeParam>& elements) {
    askedTarget = target;
    askedElements = elements;
    return std::make_shared<NotingCommand>([&](const std::string& run) {
      runs.emplace_back(run, host->groups().front().members.size());
    });
  });
  MoveTKGroupElementsCmd<TypeParam> command(host, {x, x}, t, before);

  command.execute();
  command.undo();
  command.redo();

  EXPECT_EQ(askedTarget, t);
  EXPECT_EQ(askedElements, std::vector<TypeParam>{x});
  EXPECT_EQ(runs, (std::vector<std::pair<std::string, std::size_t>>{
                      {"execute", 1}, {"undo", 1}, {"redo", 1}}));
  EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "createMoveCommand before", "getGroups",
                                      "setGroups", "setGroups", "setGroups"}));
}

TYPED_TEST(MoveElements, TreatsAnInvalidTargetLikeOneInNoGroup)
{
  const auto [x] = distinct<TypeParam, 1>();
  auto strange = group("Strange", {x});
  strange.addGroupMember(TypeParam::getInvalidId());
  const auto host = hostWith(strange);

  this->move(host, {x}, TypeParam::getInvalidId(), before);

  EXPECT_EQ(host->takeCalls(),
            (Calls{"getGroups", "createMoveCommand before", "getGroups", "setGroups"}));
  EXPECT_EQ(host->groups().front().members, std::vector<TypeParam>{TypeParam::getInvalidId()});
}

TYPED_TEST(MoveElements, DoesNothingWithoutElements)
{
  const auto [a, t] = distinct<TypeParam, 2>();
  for (const auto& target : {a, t}) {
    const auto host = hostWith(group("A", {a}));
    MoveTKGroupElementsCmd<TypeParam> command(host, {}, target, before);

    command.execute();
    command.undo();
    command.redo();

    EXPECT_EQ(host->takeCalls(), Calls{"getGroups"});
  }
}

TYPED_TEST(MoveElements, DoesNothingOnUndoAndRedoBeforeItIsExecuted)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a, b}));
  MoveTKGroupElementsCmd<TypeParam> command(host, {b}, a, before);

  command.undo();
  command.redo();

  EXPECT_EQ(host->takeCalls(), Calls{});
}

TYPED_TEST(MoveElements, MakesANewMacroWhenItIsExecutedAgain)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b, c}));
  MoveTKGroupElementsCmd<TypeParam> command(host, {c}, a, before);
  command.execute();
  host->replaceGroups({group("B", {b, a})});

  command.execute();
  EXPECT_EQ(host->groups(), list(group("B", {b, c, a})));
  command.undo();
  EXPECT_EQ(host->groups(), list(group("B", {b, a})));
}

TYPED_TEST(MoveElements, TakesItsArgumentsAlongWhenItIsAssigned)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b, c}));
  MoveTKGroupElementsCmd<TypeParam> source(host, {a}, b, after);
  MoveTKGroupElementsCmd<TypeParam> target(host, {c}, a, before);

  target = std::move(source);
  target.execute();

  EXPECT_EQ(host->groups(), list(group("A", {b, a, c})));
}

}
}
