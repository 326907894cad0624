// SPDX-License-Identifier: MIT
// The examples of docs/using.md, built and run.

#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/CommandTransaction.h"
#include "CommandPattern/HistoryEntry.h"
#include "Documentation/GuideExamples.h"
#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Differences/GroupListDifference.h"
#include "GroupHosting/Providers/TKGroupProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Support/RecordingHost.h"
#include "Support/ThreadWithStack.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Tarvik {
namespace {

using Host = RecordingHost<Identifier>;

struct Application {
  std::shared_ptr<Host> host = std::make_shared<Host>(); // owns the groups
  CommandHistory history; // owns the commands, each with a share of the host
};

std::string lastMessage;

void showMessage(const std::string& message)
{
  lastMessage = message;
}

void whenUndoIsClicked(Application& application)
{
  try {
    application.history.undo();
  } catch (const std::exception& error) {
    showMessage(error.what()); // the groups and the history are as they were
  }
}

std::shared_ptr<CommandBase> createGroup(const std::shared_ptr<Host>& host)
{
  return std::make_shared<CreateTKGroupCmd<Identifier>>(host, std::vector<Identifier>{}, "");
}

void createTwoGroups(Application& application)
{
  CommandTransaction transaction(application.history, "Create Two Groups");
  application.history.execute(createGroup(application.host));
  application.history.execute(createGroup(application.host));
  transaction.commit(); // without it, the destructor undoes both
}

class SetHeightCmd : public CommandBase, public HistoryEntry {
public:
  SetHeightCmd(double& height, double newHeight)
      : CommandBase("Set Height"), m_height(height), m_before(height), m_after(newHeight)
  {}

  void execute() override { m_height = m_after; }
  void undo() override { m_height = m_before; }
  void redo() override { m_height = m_after; }

  bool mergeWith(CommandBase& later) override
  {
    const auto* const next = dynamic_cast<SetHeightCmd*>(&later);
    if (next == nullptr || &next->m_height != &m_height)
      return false;
    m_after = next->m_after;
    return true;
  }

  bool hasChangedNothing() const override { return m_after == m_before; }

private:
  double& m_height;
  double m_before;
  double m_after;
};

TEST(UsingTheLibrary, ReleasesAHostThatDoesNotOwnTheHistory)
{
  auto application = std::make_unique<Application>();
  const std::weak_ptr<Host> watched = application->host;
  application->history.execute(createGroup(application->host));

  application.reset();

  EXPECT_TRUE(watched.expired());
}

TEST(UsingTheLibrary, NeverReleasesAHostThatOwnsTheHistory)
{
  struct OwningHost : Host {
    CommandHistory history;
  };
  auto host = std::make_shared<OwningHost>();
  const std::weak_ptr<OwningHost> watched = host;
  host->history.execute(createGroup(host));

  host.reset();

  ASSERT_FALSE(watched.expired());
  watched.lock()->history.clear(); // or this test would leak it
  EXPECT_TRUE(watched.expired());
}

TEST(UsingTheLibrary, ShowsTheErrorOfACommandAndChangesNothing)
{
  Application application;
  application.history.execute(createGroup(application.host));
  application.host->failIn("setGroups");

  whenUndoIsClicked(application);

  EXPECT_EQ(lastMessage, "setGroups");
  EXPECT_EQ(application.host->groups().size(), 1U);
  EXPECT_TRUE(application.history.canUndo());
}

TEST(UsingTheLibrary, MakesSeveralChangesOneStep)
{
  Application application;

  createTwoGroups(application);

  EXPECT_EQ(application.host->groups().size(), 2U);
  EXPECT_EQ(application.history.undoDescription(), "Create Two Groups");
  application.history.undo();
  EXPECT_TRUE(application.host->groups().empty());
}

TEST(UsingTheLibrary, MergesTheChangesOfADrag)
{
  CommandHistory history;
  double height = 1;

  for (const double next : {2.0, 3.0, 4.0})
    history.execute(std::make_shared<SetHeightCmd>(height, next));

  ASSERT_EQ(history.entries().size(), 1U);
  history.undo();
  EXPECT_EQ(height, 1);
  history.redo();
  EXPECT_EQ(height, 4);
  history.execute(std::make_shared<SetHeightCmd>(height, 1));
  EXPECT_TRUE(history.entries().empty());
}

std::shared_ptr<CommandBase> addToGroup(const std::shared_ptr<Host>& host,
                                        const std::vector<Identifier>& elements,
                                        const Identifier& group,
                                        const std::string& groupName)
{
  return std::make_shared<CompactTKGroupCmd<Identifier>>(
      host,
      [=](auto provider) { // not the host: the command is recorded
        return std::make_shared<AddToTKGroupCmd<Identifier>>(provider, elements, group);
      },
      [=] { return Translator::translate("Menu", "Add to Group: ", nullptr, -1) + groupName; });
}

TEST(UsingTheLibrary, KeepsWhatACommandChanged)
{
  const auto [a, b] = distinct<Identifier, 2>();
  Application application;
  application.host->replaceGroups({group("A", {a}), group("B", {b})});
  auto& history = application.history;

  history.execute(addToGroup(application.host, {a}, application.host->idOf("B"), "B"));

  EXPECT_EQ(application.host->groups(), list(group<Identifier>("A", {}), group("B", {b, a})));
  EXPECT_EQ(history.undoDescription(), "Add to Group: B");
  history.undo();
  EXPECT_EQ(application.host->groups(), list(group("A", {a}), group("B", {b})));
}

struct View {
  void setGroupName(std::size_t group, const std::string& name) { names.at(group) = name; }
  void insertRows(std::size_t group, std::size_t row, std::size_t count)
  {
    inserted = {group, row, count};
  }
  void rebuild() { isRebuilt = true; }

  std::vector<std::string> names;
  std::vector<std::size_t> inserted;
  bool isRebuilt = false;
};

void update(View& view,
            const std::vector<TKGroup<Identifier>>& before,
            const std::vector<TKGroup<Identifier>>& after)
{
  const GroupListDifference<Identifier> difference(before, after);
  for (const auto& step : difference.steps()) {
    if (const auto* renamed = std::get_if<GroupRenamed>(&step))
      view.setGroupName(renamed->group, renamed->after);
    else if (const auto* inserted = std::get_if<MembersInserted<Identifier>>(&step))
      view.insertRows(inserted->group, inserted->position, inserted->members.size());
    else
      view.rebuild(); // there are seven more kinds of steps in "GroupListStep.h"
  }
}

TEST(UsingTheLibrary, TellsAViewWhatChanged)
{
  const std::vector<TKGroup<Identifier>> before{group<Identifier>("A", {}),
                                                group("B", {Identifier()})};
  auto after = before;
  after[1].setName("C", true);
  after[1].addGroupMember(Identifier());
  View view{{"A", "B"}, {}};

  update(view, before, after);

  EXPECT_EQ(view.names, (std::vector<std::string>{"A", "C"}));
  EXPECT_EQ(view.inserted, (std::vector<std::size_t>{1, 1, 1}));
  EXPECT_FALSE(view.isRebuilt);
  update(view, after, {});
  EXPECT_TRUE(view.isRebuilt);
}

class Plants : public TKGroupProvider<Identifier> {
public:
  void add(const Identifier& plant, const std::string& name)
  {
    m_names[plant] = name;
    auto plants = elements();
    plants.push_back(plant);
    setElements(plants);
  }

  std::string getElementName(const Identifier& plant) override { return m_names[plant]; }

private:
  std::map<Identifier, std::string> m_names;
};

TEST(UsingTheLibrary, DerivesAHostFromTheReadyMadeProvider)
{
  const Identifier oak;
  const Identifier elm;
  Plants plants;
  plants.add(oak, "oak");
  plants.add(elm, "elm");
  const auto trees = group("trees", {oak});

  plants.setGroups({trees});

  EXPECT_EQ(plants.holderOf(oak), plants.findGroup(trees.getId()));
  EXPECT_EQ(plants.ungroupedElements(), std::vector{elm});
  EXPECT_EQ(plants.getGroupMemberNames(trees.getId()).at(0).second, "oak");
}

TEST(UsingTheLibrary, SavesAndLoadsGroups)
{
  const std::vector<TKGroup<Identifier>> groups{group("A", {Identifier()})};

  PersistenceArchiver archive; // "PersistenceArchiver/PersistenceArchiver.h"
  archive << groups;
  const auto bytes = archive.finish(); // a span: valid while the archive exists

  std::vector<TKGroup<Identifier>> loaded;
  PersistenceArchiver saved(bytes); // the bytes must remain valid while it is in use
  saved >> loaded;

  EXPECT_TRUE(identical(loaded, groups));
}

TEST(UsingTheLibrary, ThrowsAnArchiveErrorForDamagedBytes)
{
  PersistenceArchiver archive;
  archive << std::vector<TKGroup<Identifier>>{group("A", {Identifier()})};
  const auto bytes = archive.finish();

  EXPECT_THROW(PersistenceArchiver(bytes.first(bytes.size() - 1)), ArchiveError);
}

struct Link {
  Link() = default;
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  ~Link();

  std::shared_ptr<Link> next;
};

Link::~Link()
{
  auto rest = std::move(next);
  while (rest != nullptr && rest.use_count() == 1) // nobody else keeps it
    rest = std::move(rest->next);
}

TEST(UsingTheLibrary, TakesALongChainApart)
{
  ThreadWithStack::run(std::size_t{256} * 1024, [] {
    std::shared_ptr<Link> first;
    std::shared_ptr<Link> kept;
    for (int i = 0; i < 100'000; ++i) {
      auto link = std::make_shared<Link>();
      link->next = std::exchange(first, link);
      if (i == 9)
        kept = link;
    }

    first.reset();

    int length = 0;
    for (auto link = kept; link != nullptr; link = link->next)
      ++length;
    EXPECT_EQ(length, 10) << "what somebody else keeps stays whole";
  });
}

TEST(UsingTheLibrary, TakesTextsFromACatalogue)
{
  Translator::installCatalogue(
      [](const char*, const std::string& text, const char*, int) -> std::optional<std::string> {
        if (text == "Create Group")
          return "Gruppe erstellen";
        return std::nullopt; // the English text
      });

  const auto description = createGroup(std::make_shared<Host>())->getDescription();
  Translator::installCatalogue({});

  EXPECT_EQ(description, "Gruppe erstellen");
}

TEST(UsingTheLibrary, IsShownInTheGuideAsItIsHere)
{
  const auto code = withoutIndentation(USING_SOURCE);
  const auto examples = examplesIn(USING_DOCUMENT);

  for (const auto& example : examples)
    EXPECT_NE(code.find(example), std::string::npos) << example;
  EXPECT_EQ(examples.size(), 10U);
}

}
}
