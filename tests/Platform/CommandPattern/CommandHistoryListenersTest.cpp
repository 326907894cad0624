// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

class HistoryListeners : public HistoryTest {
protected:
  /// A listener that notes its name when it is called.
  CommandHistory::Subscription subscribe(const std::string& name)
  {
    return history.subscribe([this, name](const CommandHistory&) { told.push_back(name); });
  }

  /// The names noted since the last call.
  std::string takeTold() { return joined(std::exchange(told, {}), " "); }

  std::vector<std::string> told;
};

TEST_F(HistoryListeners, LearnOfEveryChangeOnce)
{
  std::vector<std::string> views;
  const auto subscription =
      history.subscribe([&](const CommandHistory& changed) { views.push_back(view(changed)); });
  const auto viewsOf = [&](const std::function<void()>& action) {
    action();
    return joined(std::exchange(views, {}), ", ");
  };

  EXPECT_EQ(viewsOf([&] { execute("A"); }), "* A |");
  EXPECT_EQ(viewsOf([&] { execute("B C!"); }), "* A B |, * A B C! |");
  EXPECT_EQ(viewsOf([&] { history.undo(); }), "* A B |");
  EXPECT_EQ(viewsOf([&] { history.jumpTo(0); }), "* | A B");
  EXPECT_EQ(viewsOf([&] { history.redo(); }), "* A | B");
  EXPECT_EQ(viewsOf([&] { history.markClean(); }), "A * | B");
  EXPECT_EQ(viewsOf([&] { history.jumpTo(2); }), "A * B |");
  EXPECT_EQ(viewsOf([&] { history.setLimit(5); }), "A * B |");
  EXPECT_EQ(viewsOf([&] { history.setLimit(1); }), "* B |");
  EXPECT_EQ(viewsOf([&] { history.clear(); }), "|");
}

TEST_F(HistoryListeners, LearnOfNothingElse)
{
  execute("A B");
  history.undo();
  history.markClean();
  const auto subscription = subscribe("L");

  EXPECT_THROW(history.execute(nullptr), std::invalid_argument);
  EXPECT_THROW(history.jumpTo(9), std::out_of_range);
  history.jumpTo(1);
  history.markClean();
  history.setLimit(CommandHistory::unlimited);
  history.undoDescription();
  view(history);
  EXPECT_EQ(takeTold(), "");

  history.clear();
  takeTold();
  history.undo();
  history.redo();
  history.clear();
  history.jumpTo(0);
  EXPECT_EQ(takeTold(), "");
}

TEST_F(HistoryListeners, LearnOfNothingWhenACommandFails)
{
  execute("A B");
  history.undo();
  const auto subscription = subscribe("L");

  for (const auto* const call : {"execute X", "undo A", "redo B"})
    document.failAt(call);
  EXPECT_THROW(execute("X"), Failure);
  EXPECT_THROW(history.undo(), Failure);
  EXPECT_THROW(history.redo(), Failure);
  EXPECT_THROW(history.jumpTo(0), Failure);
  EXPECT_THROW(history.jumpTo(2), Failure);

  EXPECT_EQ(takeTold(), "");
}

TEST_F(HistoryListeners, AreToldInTheOrderOfSubscription)
{
  const auto first = subscribe("1");
  const auto second = subscribe("2");
  const auto third = subscribe("3");

  execute("A");

  EXPECT_EQ(takeTold(), "1 2 3");
}

TEST_F(HistoryListeners, GetTheHistoryThatChanged)
{
  const CommandHistory* changed = nullptr;
  const auto subscription =
      history.subscribe([&](const CommandHistory& subject) { changed = &subject; });

  execute("A");

  EXPECT_EQ(changed, &history);
}

TEST_F(HistoryListeners, AreToldOnlyWhileTheirSubscriptionLives)
{
  {
    const auto subscription = subscribe("L");
    execute("A");
  }
  EXPECT_EQ(takeTold(), "L");

  execute("B");

  EXPECT_EQ(takeTold(), "");
}

TEST_F(HistoryListeners, AreNotToldOnceTheirSubscriptionIsCancelled)
{
  auto subscription = subscribe("L");
  const auto other = subscribe("M");

  subscription.cancel();
  subscription.cancel();
  execute("A");

  EXPECT_EQ(takeTold(), "M");
}

TEST_F(HistoryListeners, AreReleasedWithTheirSubscription)
{
  const auto captured = std::make_shared<int>(0);
  auto subscription = history.subscribe([captured](const CommandHistory&) {});

  subscription.cancel();

  EXPECT_EQ(captured.use_count(), 1);
}

TEST_F(HistoryListeners, AreRefusedWhenEmpty)
{
  EXPECT_THROW(static_cast<void>(history.subscribe(nullptr)), std::invalid_argument);
  EXPECT_THROW(static_cast<void>(history.subscribe(CommandHistory::Listener())),
               std::invalid_argument);

  execute("A");
}

TEST_F(HistoryListeners, KeepTheirSubscriptionWhenItIsMoved)
{
  auto source = subscribe("L");

  auto target = std::move(source);
  source.cancel(); // NOLINT: it is moved from, and does nothing
  execute("A");
  EXPECT_EQ(takeTold(), "L");

  CommandHistory::Subscription assigned;
  assigned.cancel();
  assigned = std::move(target);
  execute("B");
  EXPECT_EQ(takeTold(), "L");
}

TEST_F(HistoryListeners, LoseTheSubscriptionThatAnotherIsMovedTo)
{
  auto first = subscribe("1");
  auto second = subscribe("2");

  first = std::move(second);
  execute("A");

  EXPECT_EQ(takeTold(), "2");
}

TEST_F(HistoryListeners, HaveSubscriptionsThatMoveWithoutFailureAndAreNotCopied)
{
  using Subscription = CommandHistory::Subscription;

  static_assert(!std::is_copy_constructible_v<Subscription>);
  static_assert(!std::is_copy_assignable_v<Subscription>);
  static_assert(std::is_nothrow_default_constructible_v<Subscription>);
  static_assert(std::is_nothrow_move_constructible_v<Subscription>);
  static_assert(std::is_nothrow_move_assignable_v<Subscription>);
}

TEST_F(HistoryListeners, MayBeSubscribedForLongerThanTheHistoryLives)
{
  const auto captured = std::make_shared<int>(0);
  std::optional<CommandHistory> shortLived(std::in_place);
  auto subscription = shortLived->subscribe([captured](const CommandHistory&) {});

  shortLived.reset();
  EXPECT_EQ(captured.use_count(), 2);
  auto moved = std::move(subscription);
  moved.cancel();

  EXPECT_EQ(captured.use_count(), 1);
}

TEST_F(HistoryListeners, MayUnsubscribeThemselvesWhileBeingTold)
{
  CommandHistory::Subscription own;
  const auto before = subscribe("1");
  own = history.subscribe([this, &own, name = std::string(100, 'x')](const CommandHistory&) {
    own.cancel();
    told.push_back(name); // it still exists: the history has a share
  });
  const auto after = subscribe("3");

  execute("A");
  EXPECT_EQ(takeTold(), "1 " + std::string(100, 'x') + " 3");

  execute("B");
  EXPECT_EQ(takeTold(), "1 3");
}

TEST_F(HistoryListeners, MayUnsubscribeOthersWhileBeingTold)
{
  CommandHistory::Subscription earlier = subscribe("earlier");
  CommandHistory::Subscription later;
  const auto meddling = history.subscribe([&](const CommandHistory&) {
    told.emplace_back("meddling");
    earlier.cancel();
    later.cancel();
  });
  later = subscribe("later");

  execute("A");
  EXPECT_EQ(takeTold(), "earlier meddling");

  execute("B");
  EXPECT_EQ(takeTold(), "meddling");
}

TEST_F(HistoryListeners, MaySubscribeOthersWhoAreToldFromTheNextChangeOn)
{
  std::vector<CommandHistory::Subscription> added;
  const auto inviting = history.subscribe([&](const CommandHistory&) {
    told.emplace_back("inviting");
    for (int i = 0; i < 20 && added.size() < 20; ++i) // so many that the list has to grow
      added.push_back(subscribe("new"));
  });
  const auto second = subscribe("second");

  execute("A");
  EXPECT_EQ(takeTold(), "inviting second");

  execute("B");
  EXPECT_EQ(takeTold().substr(0, 27), "inviting second new new new");
}

TEST_F(HistoryListeners, MayOperateTheHistory)
{
  const auto subscription = history.subscribe([this](const CommandHistory& changed) {
    told.push_back(view(changed));
    if (changed.undoDescription() == "Bad")
      history.undo();
  });

  execute("A Bad");

  EXPECT_EQ(joined(told, ", "), "* A |, * A Bad |, * A | Bad");
  EXPECT_EQ(document.text(), "A");
}

TEST_F(HistoryListeners, AreNotToldAboutChangesThatTheyMakeAfterTheyUnsubscribed)
{
  std::optional<CommandHistory::Subscription> own;
  for (const bool destroyed : {false, true}) {
    own = history.subscribe([&, destroyed](const CommandHistory&) {
      told.emplace_back("told");
      if (destroyed)
        own.reset();
      else
        own->cancel();
      history.undo();
    });

    execute("A");

    EXPECT_EQ(takeTold(), "told") << (destroyed ? "destroyed" : "cancelled");
  }
}

TEST_F(HistoryListeners, MayDoEverythingAtOnce)
{
  CommandHistory::Subscription own;
  CommandHistory::Subscription later;
  CommandHistory::Subscription added;
  own = history.subscribe([&](const CommandHistory&) {
    told.emplace_back("own");
    own.cancel();
    later.cancel();
    added = subscribe("added");
    history.undo();
    history.setLimit(0);
    throw std::runtime_error("own");
  });
  later = subscribe("later");

  EXPECT_THROW(execute("A"), std::runtime_error);
  EXPECT_EQ(takeTold(), "own added added");
  EXPECT_EQ(view(history), "* |");

  execute("B");
  EXPECT_EQ(takeTold(), "added");
}

TEST_F(HistoryListeners, AreAllToldEvenIfOneOfThemThrows)
{
  const auto before = subscribe("1");
  const auto throwing =
      history.subscribe([](const CommandHistory&) { throw std::runtime_error("2"); });
  const auto alsoThrowing =
      history.subscribe([](const CommandHistory&) { throw std::runtime_error("3"); });
  const auto after = subscribe("4");

  try {
    execute("A");
    FAIL() << "the exception is lost";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "2") << "not the first exception";
  }

  EXPECT_EQ(takeTold(), "1 4");
}

TEST_F(HistoryListeners, LeaveTheChangeAsItIsWhenTheyThrow)
{
  const auto throwing =
      history.subscribe([](const CommandHistory&) { throw std::runtime_error("thrown"); });

  EXPECT_THROW(execute("A"), std::runtime_error);
  EXPECT_EQ(view(history), "* A |");
  EXPECT_THROW(execute("B"), std::runtime_error);
  EXPECT_THROW(history.undo(), std::runtime_error);
  EXPECT_EQ(view(history), "* A | B");
  EXPECT_THROW(history.redo(), std::runtime_error);
  EXPECT_EQ(view(history), "* A B |");
  EXPECT_THROW(history.jumpTo(0), std::runtime_error);
  EXPECT_EQ(view(history), "* | A B");
  EXPECT_EQ(document.text(), "");
  EXPECT_THROW(history.jumpTo(1), std::runtime_error);
  EXPECT_THROW(history.markClean(), std::runtime_error);
  EXPECT_EQ(view(history), "A * | B");
  EXPECT_THROW(history.setLimit(1), std::runtime_error);
  EXPECT_EQ(view(history), "* | B");
  EXPECT_THROW(history.clear(), std::runtime_error);
  EXPECT_EQ(view(history), "* |");
}

}
}
