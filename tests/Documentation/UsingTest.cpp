// SPDX-License-Identifier: MIT
// The examples of docs/using.md, built and run.

#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/CommandTransaction.h"
#include "CommandPattern/HistoryEntry.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Support/RecordingHost.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <exception>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
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

/// The lines of the text, without their indentation.
std::string withoutIndentation(std::istream&& text)
{
  std::string result;
  for (std::string line; std::getline(text, line);)
    result += line.erase(0, line.find_first_not_of(' ')) + '\n';
  return result;
}

TEST(UsingTheLibrary, IsShownInTheGuideAsItIsHere)
{
  const auto code = withoutIndentation(std::ifstream(USING_SOURCE));
  const auto guide = withoutIndentation(std::ifstream(USING_DOCUMENT));
  const std::string start = "```cpp\n";

  int examples = 0;
  for (auto at = guide.find(start); at != std::string::npos; at = guide.find(start, at)) {
    at += start.size();
    const auto example = guide.substr(at, guide.find("```", at) - at);
    EXPECT_NE(code.find(example), std::string::npos) << example;
    ++examples;
  }
  EXPECT_EQ(examples, 6);
}

}
}
