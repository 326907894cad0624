// SPDX-License-Identifier: MIT
// A document that is the provider of its groups and owns the history of the commands that change
// them.

#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "QtModels/Editing/GroupEditor.h"
#include "QtModels/Editing/GroupStep.h"
#include "QtModels/History/History.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Support/GuideExample.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace Tarvik {
namespace {

using Plants = TestProvider<Identifier>;

// [the example begins]
class PlantsDocument : public Plants {
public:
  /// For commands, models and editors, all of which go before the document: keeps nothing alive.
  std::shared_ptr<PlantsDocument> lent() { return {std::shared_ptr<void>(), this}; }

  /// A member, so that the commands go before the groups.
  History history;
};
// [the example ends]

TEST(OwnershipTest, IsShownInTheGuide)
{
  expectGuideToHaveTheExample("docs/qt.md", "tests/QtModels/History/OwnershipTest.cpp");
}

TEST(OwnershipTest, OfAHistoryEndsWithTheDocument)
{
  const std::vector<Identifier> plants(2);
  auto document = std::make_shared<PlantsDocument>();
  document->setElements(plants);
  const std::weak_ptr<PlantsDocument> watched = document;
  std::weak_ptr<CommandBase> command;
  {
    GroupItemModel<Identifier> model(document->lent());
    const auto* const editor = new GroupEditor<Identifier>(
        model, handlerIn<Identifier>(document->history.commands(), document->lent()));
    editor->operations().createGroup(plants, "Trees");
    editor->operations().createGroup({}, "Shrubs");
    document->history.undo();
    command = document->history.commands().entries().front();
    ASSERT_EQ(document->groups().size(), 1U);
  }
  ASSERT_FALSE(command.expired());

  document.reset();

  EXPECT_TRUE(watched.expired());
  EXPECT_TRUE(command.expired());
}

TEST(OwnershipTest, OfTheProviderByItsOwnCommandsKeepsTheDocumentUntilTheyAreCleared)
{
  auto document = std::make_shared<PlantsDocument>();
  const std::weak_ptr<PlantsDocument> watched = document;
  document->history.push(
      std::make_shared<CreateTKGroupCmd<Identifier>>(document, std::vector<Identifier>{}, "Trees"));

  document.reset();
  ASSERT_FALSE(watched.expired()) << "the command has a share";
  watched.lock()->history.clear();

  EXPECT_TRUE(watched.expired());
}

}
}
