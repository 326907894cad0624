// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandTransaction.h"

#include "Platform/CommandPattern/DragCommands.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

class Transaction : public HistoryTest {
protected:
  /// What the listeners have seen.
  std::vector<std::string> views;
  CommandHistory::Subscription subscription =
      history.subscribe([this](const CommandHistory& changed) { views.push_back(view(changed)); });
};

TEST_F(Transaction, BecomesOneEntryWhenItIsCommitted)
{
  CommandTransaction transaction(history, "Both");
  execute("A B");

  EXPECT_TRUE(transaction.commit());

  EXPECT_EQ(view(history), "* Both |");
  EXPECT_EQ(views, std::vector<std::string>{"* Both |"});
  document.takeCalls();
  history.undo();
  history.redo();
  EXPECT_EQ(document.takeCalls(), "undo B, undo A, redo A, redo B");
}

TEST_F(Transaction, IsDescribedByItsFirstCommandUnlessItHasADescription)
{
  CommandTransaction transaction(history);
  execute("A B");
  transaction.commit();

  EXPECT_EQ(history.undoDescription(), "A");
}

TEST_F(Transaction, IsUndoneUnlessItIsCommitted)
{
  execute("A B");
  history.undo();
  views.clear();
  document.takeCalls();

  {
    const CommandTransaction transaction(history);
    execute("C D");
    EXPECT_EQ(document.text(), "A C D");
  }

  EXPECT_EQ(document.takeCalls(), "execute C, execute D, undo D, undo C");
  EXPECT_EQ(view(history), "* A | B");
  EXPECT_EQ(views, std::vector<std::string>{"* A | B"});
  history.redo();
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(Transaction, IsUndoneWhenACommandThrows)
{
  document.failAt("execute C");

  const auto edit = [&] {
    CommandTransaction transaction(history);
    execute("A B C");
    transaction.commit();
  };
  EXPECT_EQ(failureOf(edit), "execute C");

  EXPECT_EQ(document.text(), "");
  EXPECT_EQ(view(history), "* |");
}

TEST_F(Transaction, MayGoOnAfterACommandThatThrows)
{
  document.failAt("execute B");
  CommandTransaction transaction(history, "T");
  execute("A");
  EXPECT_THROW(execute("B"), Failure);

  execute("C");
  transaction.commit();

  EXPECT_EQ(document.text(), "A C");
  EXPECT_EQ(view(history), "* T |");
}

TEST_F(Transaction, LeavesNothingWhenItHasNoCommands)
{
  execute("A B");
  history.undo();
  views.clear();
  CommandTransaction transaction(history, "Nothing");

  EXPECT_FALSE(transaction.commit());

  EXPECT_EQ(view(history), "* A | B");
  EXPECT_EQ(views, std::vector<std::string>{"* A | B"});
}

TEST_F(Transaction, LeavesNothingWhenItsCommandsChangedNothing)
{
  Desk desk;
  history.setDropsCommandsWithoutChange(true);
  CommandTransaction transaction(history);
  history.execute(std::make_shared<Drag>(desk, 0));
  history.execute(std::make_shared<Drag>(desk, 5, DragTraits{.hand = "left"}));
  history.execute(std::make_shared<Drag>(desk, 0, DragTraits{.hand = "left"}));

  EXPECT_FALSE(transaction.commit());

  EXPECT_EQ(view(history), "* |");
}

TEST_F(Transaction, CutsOffWhatCouldBeRedoneWhenItIsCommitted)
{
  execute("A B");
  history.undo();

  CommandTransaction transaction(history, "T");
  execute("C");
  EXPECT_EQ(view(history), "* A | B");
  transaction.commit();

  EXPECT_EQ(view(history), "* A T |");
}

TEST_F(Transaction, HasTheSumOfTheSizesOfItsCommands)
{
  history.setBudget(100);
  history.execute(append(document, "A"), 50);

  CommandTransaction transaction(history, "T");
  history.execute(append(document, "B"), 40);
  history.keep(append(document, "C"), 60);
  EXPECT_EQ(history.sizeInBytes(), 50U);
  transaction.commit();

  EXPECT_EQ(view(history), "T |");
  EXPECT_EQ(history.sizeInBytes(), 100U);
}

TEST_F(Transaction, MergesItsCommandsWithEachOtherOnly)
{
  Desk desk;
  const auto drag = [&](int to) {
    history.execute(std::make_shared<Drag>(desk, to, DragTraits{.hand = "left"}));
  };
  drag(1);

  {
    CommandTransaction transaction(history);
    drag(2);
    drag(3);
    transaction.commit();
  }
  drag(4);

  EXPECT_EQ(view(history), "* 0>1 1>3 3>4 |");
}

TEST_F(Transaction, IsUnsavedWhileItHasCommands)
{
  const CommandTransaction transaction(history);
  EXPECT_TRUE(history.isClean());

  execute("A");

  EXPECT_FALSE(history.isClean());
  EXPECT_EQ(history.cleanPosition(), 0U);
}

TEST_F(Transaction, LetsNothingBeUndoneOrMarkedWhileItIsOpen)
{
  execute("A B");
  history.undo();
  const CommandTransaction transaction(history);

  EXPECT_FALSE(history.canUndo());
  EXPECT_FALSE(history.canRedo());
  EXPECT_EQ(history.undoDescription(), "");
  EXPECT_EQ(history.redoDescription(), "");
  EXPECT_THROW(history.undo(), std::logic_error);
  EXPECT_THROW(history.redo(), std::logic_error);
  EXPECT_THROW(history.jumpTo(0), std::logic_error);
  EXPECT_THROW(history.markClean(), std::logic_error);
  EXPECT_THROW(history.clear(), std::logic_error);
  EXPECT_THROW(history.reset(), std::logic_error);

  EXPECT_EQ(view(history), "* A | B");
}

TEST_F(Transaction, TellsAtItsEndThatSomethingCanBeUndoneAgain)
{
  execute("A B C");
  std::vector<bool> canUndo;
  const auto watching =
      history.subscribe([&](const auto& told) { canUndo.push_back(told.canUndo()); });
  {
    CommandTransaction rolledBack(history);
    history.releaseOldest(1);
    rolledBack.rollBack();
  }
  EXPECT_EQ(canUndo, (std::vector{false, true}));

  canUndo.clear();
  {
    CommandTransaction withoutCommands(history);
    const CommandTransaction abandoned(history);
    history.setBudget(5000);
    history.setLimit(50);
  }
  EXPECT_EQ(canUndo, (std::vector{false, false, true}));

  canUndo.clear();
  CommandTransaction(history).rollBack();
  EXPECT_EQ(canUndo, std::vector{true}) << "somebody may have looked meanwhile";
}

TEST_F(Transaction, SaysThatItIsOpen)
{
  execute("A");
  const CommandTransaction transaction(history);

  try {
    history.undo();
    FAIL() << "undone";
  } catch (const std::logic_error& error) {
    EXPECT_STREQ(error.what(), "CommandHistory::undo: called while a transaction is open");
  }
}

TEST_F(Transaction, EndsOnce)
{
  CommandTransaction transaction(history, "T");
  execute("A");
  transaction.commit();

  EXPECT_THROW(transaction.commit(), std::logic_error);
  EXPECT_THROW(transaction.rollBack(), std::logic_error);

  EXPECT_EQ(view(history), "* T |");
}

TEST_F(Transaction, IsRolledBackOnRequest)
{
  CommandTransaction transaction(history);
  execute("A B");

  transaction.rollBack();

  EXPECT_EQ(document.text(), "");
  EXPECT_EQ(view(history), "* |");
  execute("C"); // outside
  EXPECT_EQ(view(history), "* C |");
}

TEST_F(Transaction, ReleasesTheCommandsThatAreRolledBack)
{
  const auto a = append(document, "A");
  {
    const CommandTransaction transaction(history);
    history.execute(a);
  }
  EXPECT_EQ(a.use_count(), 1);
}

TEST_F(Transaction, KeepsWhatCannotBeRolledBack)
{
  CommandTransaction transaction(history, "T");
  execute("A B C");
  document.failAt("undo B");

  EXPECT_EQ(failureOf([&] { transaction.rollBack(); }), "undo B");

  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(view(history), "* T |");
  EXPECT_EQ(views, std::vector<std::string>{"* T |"});
  document.failNowhere();
  history.undo();
  EXPECT_EQ(document.text(), "");
}

TEST_F(Transaction, KeepsWhatItsDestructorCannotRollBack)
{
  {
    const CommandTransaction transaction(history, "T");
    execute("A B C");
    document.failAt("undo A");
  }

  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "* T |");
}

TEST_F(Transaction, IsOneCommandOfTheTransactionAroundIt)
{
  CommandTransaction outer(history, "Outer");
  execute("A");
  {
    CommandTransaction inner(history, "Inner");
    execute("B C");
    EXPECT_TRUE(inner.commit());
  }
  {
    const CommandTransaction rolledBack(history);
    execute("D");
  }
  execute("E");
  EXPECT_TRUE(views.empty());
  outer.commit();

  EXPECT_EQ(view(history), "* Outer |");
  EXPECT_EQ(views.size(), 1U);
  EXPECT_EQ(document.text(), "A B C E");
  document.takeCalls();
  history.undo();
  EXPECT_EQ(document.takeCalls(), "undo E, undo C, undo B, undo A");
}

TEST_F(Transaction, IsRolledBackWithTheOneAroundIt)
{
  {
    const CommandTransaction outer(history);
    execute("A");
    CommandTransaction inner(history);
    execute("B");
    inner.commit();
  }

  EXPECT_EQ(document.text(), "");
  EXPECT_EQ(view(history), "* |");
}

TEST_F(Transaction, MustEndBeforeTheOneAroundIt)
{
  CommandTransaction outer(history, "Outer");
  CommandTransaction inner(history, "Inner");
  execute("A");

  EXPECT_THROW(outer.commit(), std::logic_error);
  EXPECT_THROW(outer.rollBack(), std::logic_error);

  EXPECT_TRUE(inner.commit());
  EXPECT_TRUE(outer.commit());
  EXPECT_EQ(view(history), "* Outer |");
}

TEST_F(Transaction, EndsWithTheOneAroundItAtTheLatest)
{
  std::optional<CommandTransaction> outer(std::in_place, history, "Outer");
  CommandTransaction inner(history, "Inner");
  execute("A");

  outer.reset();
  EXPECT_EQ(document.text(), "");
  EXPECT_THROW(inner.commit(), std::logic_error);

  CommandTransaction another(history, "Another");
  execute("B");
  EXPECT_THROW(inner.commit(), std::logic_error) << "takes another transaction for itself";
  another.commit();
  EXPECT_EQ(view(history), "* Another |");
}

TEST_F(Transaction, KeepsWhatAnInnerOneCannotRollBack)
{
  CommandTransaction outer(history, "Outer");
  execute("A");
  CommandTransaction inner(history, "Inner");
  execute("B C");
  document.failAt("undo B");
  EXPECT_THROW(inner.rollBack(), Failure);
  EXPECT_TRUE(views.empty());
  outer.commit();

  EXPECT_EQ(view(history), "* Outer |");
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(Transaction, FollowsTheLimitOnlyWhenItIsCommitted)
{
  history.setLimit(1);
  execute("A");
  CommandTransaction transaction(history, "T");
  execute("B C D");
  EXPECT_EQ(view(history), "* A |");
  transaction.commit();

  EXPECT_EQ(view(history), "T |");
}

TEST_F(Transaction, IsNotKeptByAHistoryThatKeepsNothing)
{
  history.setLimit(0);
  CommandTransaction transaction(history, "T");
  execute("A");
  transaction.commit();

  EXPECT_EQ(view(history), "|");
  EXPECT_EQ(document.text(), "A");
}

TEST_F(Transaction, IsReleasedWithAHistoryThatIsDestroyedTooEarly)
{
  const auto a = append(document, "A");
  auto shortLived = std::make_unique<CommandHistory>();
  {
    // never destroyed itself: it would reach a history that is gone
    alignas(CommandTransaction) std::byte place[sizeof(CommandTransaction)];
    new (place) CommandTransaction(*shortLived);
    shortLived->execute(a);
  }

  shortLived.reset();

  EXPECT_EQ(a.use_count(), 1);
}

TEST_F(Transaction, StaysWhenAListenerThrows)
{
  const auto throwing = history.subscribe([](const auto&) { throw std::runtime_error("thrown"); });
  CommandTransaction transaction(history, "T");
  execute("A");

  EXPECT_THROW(transaction.commit(), std::runtime_error);

  EXPECT_EQ(view(history), "* T |");
}

#if !defined(_MSC_VER) // allocations in DLLs cannot be counted there

TEST_F(Transaction, NeedsNoMemoryToEnd)
{
  subscription.cancel();
  for (const bool isCommitted : {true, false}) {
    CommandTransaction transaction(history, "A description that is too long for the string itself");
    execute("A B C D E");
    document.takeCalls();

    if (isCommitted) {
      const AllocationWatch watch(0);
      transaction.commit();
      EXPECT_EQ(watch.count(), 0U);
    } else {
      document.failAt("undo A"); // so that A is kept
      EXPECT_THROW(transaction.rollBack(), Failure);
    }
  }
  EXPECT_EQ(history.entries().size(), 2U);
}

TEST_F(Transaction, LeavesTheHistoryAsItWasWhenMemoryRunsOut)
{
  for (std::size_t failing = 0;; ++failing) {
    Document fresh;
    CommandHistory subject;
    subject.execute(append(fresh, "A"));
    const auto b = append(fresh, "B");
    const auto c = append(fresh, "C");
    bool hasFailed = false;
    {
      const AllocationWatch watch(failing);
      try {
        CommandTransaction transaction(subject);
        subject.execute(b);
        subject.execute(c);
        transaction.commit();
      } catch (const std::bad_alloc&) {
        hasFailed = true;
      }
    }
    if (!hasFailed) {
      EXPECT_EQ(view(subject), "* A B |");
      EXPECT_GT(failing, 3U);
      break;
    }
    EXPECT_EQ(view(subject), "* A |") << "allocation " << failing;
    EXPECT_EQ(fresh.text(), "A") << "allocation " << failing;
  }
}

#endif

}
}
