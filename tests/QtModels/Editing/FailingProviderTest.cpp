// SPDX-License-Identifier: MIT
// What a user sees of a provider that throws, at whichever of its operations it does.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "QtModels/History/History.h"
#include "QtModels/Support/EditedDocument.h"
#include "QtModels/Support/ShownRows.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// A provider whose operations can be made to throw. Its elements have an order of their own.
template <class T>
class FailingProvider : public OrderedProvider<T> {
public:
  static constexpr int never = std::numeric_limits<int>::max();

  /// Lets one operation throw, counted from 0, from now on.
  void failAt(int operation) { m_untilFailure = operation; }

  bool hasFailed() const { return m_untilFailure < 0; }

  std::vector<TKGroup<T>>& getGroups() override
  {
    step();
    return OrderedProvider<T>::getGroups();
  }

  std::string getElementName(const T& element) override
  {
    step();
    return OrderedProvider<T>::getElementName(element);
  }

  std::vector<T> getUngroupedElements() override
  {
    step();
    return OrderedProvider<T>::getUngroupedElements();
  }

  std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) override
  {
    step();
    return OrderedProvider<T>::createMoveCommand(target, elements, insertBefore);
  }

  void renameGroup(const Identifier& groupId, const std::string& name) override
  {
    step();
    OrderedProvider<T>::renameGroup(groupId, name);
  }

  std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier& groupId) override
  {
    step();
    return OrderedProvider<T>::getGroupMemberNames(groupId);
  }

private:
  void step()
  {
    if (m_untilFailure != never && m_untilFailure-- == 0)
      throw std::runtime_error("the provider is out of order");
  }

  int m_untilFailure = never;
};

/// A document of such a provider, with a history for Qt. Notes what users are told.
template <class T>
struct FailingDocument : EditedDocument<T, FailingProvider<T>> {
  FailingDocument() : EditedDocument<T, FailingProvider<T>>("B[ba] A[c] ed")
  {
    const auto note = [this](const QString& message) { told += message; };
    QObject::connect(&this->editor, &GroupEditorBase::failed, &this->model, note);
    QObject::connect(&this->model, &GroupItemModelBase::failed, &this->model, note);
    QObject::connect(&history, &History::failed, &this->model, note);
  }

  History history = History(this->EditedDocument<T, FailingProvider<T>>::history);
  QStringList told;
};

/// What is to be done with a document. Finds rows and elements when it is called, and returns what
/// uses them: so only that part is hindered.
template <class T>
using Step = std::function<std::function<void()>(FailingDocument<T>&)>;

/// What users do with the editor.
template <class T>
std::vector<Step<T>> gestures()
{
  const auto moving = [](const std::string& rows, char target, Side side) -> Step<T> {
    return [=](auto& document) {
      return [&document, side, moved = document.rows(rows), next = document.row(target)] {
        document.editor.moveBeside(moved, next, side);
      };
    };
  };
  return {
      moving("e", 'b', Side::After),
      moving("a", 'd', Side::Before),
      moving("A", 'B', Side::Before),
      [](auto& document) {
        return [&document, rows = document.rows("ce")] { document.editor.createGroup(rows); };
      },
      [](auto& document) {
        return [&document, rows = document.rows("ae"), group = document.row('A')] {
          document.editor.addToGroup(rows, group);
        };
      },
      [](auto& document) {
        return [&document, rows = document.rows("bc")] { document.editor.removeFromGroups(rows); };
      },
      [](auto& document) {
        return [&document, group = document.row('A')] { document.editor.renameGroup(group, "N"); };
      },
      [](auto& document) { return [&document] { document.editor.sortGroups(); }; },
      [](auto& document) {
        return [&document, rows = document.rows("B")] { document.editor.deleteGroups(rows); };
      },
  };
}

/// The commands as an application pushes them itself.
template <class T>
std::vector<Step<T>> pushedCommands()
{
  const auto pushing = [](auto makeCommand) -> Step<T> {
    return [makeCommand](auto& document) {
      return [&document, command = makeCommand(document)] { document.history.push(command); };
    };
  };
  return {
      pushing([](auto& document) {
        return std::make_shared<CreateTKGroupCmd<T>>(document.provider, document.elements("ce"),
                                                     "");
      }),
      pushing([](auto& document) {
        return std::make_shared<AddToTKGroupCmd<T>>(document.provider, document.elements("ae"),
                                                    document.group('A'));
      }),
      pushing([](auto& document) {
        return std::make_shared<RemoveFromTKGroupCmd<T>>(document.provider,
                                                         document.elements("bc"));
      }),
      pushing([](auto& document) {
        return std::make_shared<MoveTKGroupElementsCmd<T>>(
            document.provider, document.elements("e"), document.element('b'), true);
      }),
      pushing([](auto& document) {
        return std::make_shared<RenameTKGroupCmd<T>>(document.provider, document.group('A'), "N");
      }),
      pushing([](auto& document) {
        return std::make_shared<SortTKGroupsAlphabeticallyCmd<T>>(document.provider);
      }),
      pushing([](auto& document) {
        return std::make_shared<RemoveTKGroupsCmd<T>>(document.provider, document.groups("B"));
      }),
  };
}

/// Does a step in a new document each time, while one operation of the provider after the other
/// throws, until none does. The step is done completely or not at all, and the user is told.
template <class T>
void expectAllOrNothing(const Step<T>& step,
                        const std::function<void(FailingDocument<T>&)>& prepare)
{
  bool hasSucceeded = false;
  for (int failing = 0; !hasSucceeded; ++failing) {
    ASSERT_LT(failing, 1000) << "it always fails";
    FailingDocument<T> document;
    prepare(document);
    const auto before = document.text();
    const auto index = document.history.index();
    const auto act = step(document);

    document.provider->failAt(failing);
    ASSERT_NO_THROW(act()) << "operation " << failing;
    hasSucceeded = !document.provider->hasFailed();
    document.provider->failAt(FailingProvider<T>::never);

    const bool isDone = document.history.index() != index;
    ASSERT_EQ(document.text() != before, isDone) << "operation " << failing;
    ASSERT_TRUE(isDone || !hasSucceeded) << "nothing was done, and nothing has thrown";
    ASSERT_TRUE(isDone || document.told.join(' ').contains("the provider is out of order"))
        << "operation " << failing << ": " << document.told.join(' ').toStdString();
    ASSERT_NO_FATAL_FAILURE(expectToShow(document.model, *document.provider)) << failing;
    if (!isDone) {
      step(document)();
      ASSERT_NE(document.text(), before) << "tried again, after operation " << failing;
    }
  }
}

template <class T>
void doNothing(FailingDocument<T>&)
{}

template <class T>
class FailingProviderTest : public ::testing::Test {};
TYPED_TEST_SUITE(FailingProviderTest, ElementIdentifiers, KindName);

TYPED_TEST(FailingProviderTest, LeavesAGestureUndoneOrDone)
{
  for (const auto& gesture : gestures<TypeParam>())
    ASSERT_NO_FATAL_FAILURE(expectAllOrNothing<TypeParam>(gesture, doNothing<TypeParam>));
}

TYPED_TEST(FailingProviderTest, LeavesAPushedCommandUndoneOrDone)
{
  for (const auto& push : pushedCommands<TypeParam>())
    ASSERT_NO_FATAL_FAILURE(expectAllOrNothing<TypeParam>(push, doNothing<TypeParam>));
}

TYPED_TEST(FailingProviderTest, LeavesAStepUndoneOrRedone)
{
  using Document = FailingDocument<TypeParam>;
  const Step<TypeParam> undo = [](Document& document) {
    return [&document] { document.history.undo(); };
  };
  const Step<TypeParam> redo = [](Document& document) {
    return [&document] { document.history.redo(); };
  };
  auto steps = gestures<TypeParam>();
  for (auto& push : pushedCommands<TypeParam>())
    steps.push_back(push);
  for (const auto& step : steps) {
    ASSERT_NO_FATAL_FAILURE(
        expectAllOrNothing<TypeParam>(undo, [&step](auto& document) { step(document)(); }));
    ASSERT_NO_FATAL_FAILURE(expectAllOrNothing<TypeParam>(redo, [&step](auto& document) {
      step(document)();
      document.history.undo();
    }));
  }
}

}
}
