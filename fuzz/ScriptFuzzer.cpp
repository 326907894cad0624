// SPDX-License-Identifier: MIT
// Runs any bytes as a script of point-collections, on a small document and files in memory. run()
// checks what must hold after each line, and requireAll() what must hold after each change. If the
// first line is "## asked", the lines after a question are its answers. From a line "## full" on
// the disk is full, until a line "## room".

#include "PointCollections/Console/Shell/Completion.h"
#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Console/Shell/UnsavedChanges.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Support/MemoryFiles.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Words.h"
#include "Support/Documents.h"
#include "Support/Require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

constexpr auto points = "collection,x,y,z\n"
                        "Berlin,1,2,3\nParis,4,5,6\nparis,7,8,9\n\"Frankfurt, Oder\",1,1,1\n"
                        "São Tomé,2,2,2\n--at,3,3,3\n\"a \"\"b\"\" \\c\",0,0,0\nLima,5,5,5\n";

std::shared_ptr<MemoryFiles> makeFiles()
{
  auto files = std::make_shared<MemoryFiles>();
  files->contents["points.csv"] = points;
  files->contents["other.csv"] = "collection,x,y,z\nOslo,1,0,0\nBern,0,1,0\n";
  files->contents["broken.csv"] = "collection,x,y\n";
  files->contents["broken.tkpc"] = "no project";
  return files;
}

/// What a change of the document, undo and redo can alter.
struct Edited {
  std::shared_ptr<PointDocument> document;
  DocumentState content;
  std::vector<std::shared_ptr<CommandBase>> entries;
  std::size_t position;
  bool isOver;

  friend bool operator==(const Edited& a, const Edited& b) = default;
};

/// What saving can alter.
struct Saved {
  std::string title;
  std::filesystem::path projectFile;
  bool isClean;
  std::map<std::string, std::string> files;

  friend bool operator==(const Saved& a, const Saved& b) = default;
};

std::string lastWord(std::string_view line)
{
  const auto split = splitUnfinished(line);
  const bool isAfterIt = split.last.text.empty() && !split.words.empty();
  return isAfterIt ? split.words.back().text : split.last.text;
}

/// The completion must be safe to print, start within the line, and not shorten the word being
/// typed.
void requireCompletion(std::string_view line, const Completion& completion)
{
  require(completion.from <= line.size(), "a completion that starts after the end of the line");
  std::ranges::for_each(completion.candidates, requireShowable);
  if (completion.candidates.empty())
    return;
  requireShowable(completion.text);
  const auto completed = std::string(line.substr(0, completion.from)) + completion.text;
  require(lastWord(completed).size() >= splitUnfinished(line).last.text.size(),
          "a completion that takes away what was typed");
}

/// Runs a script. Keeps the state of the document at both ends of its history, for comparison.
class Run {
public:
  explicit Run(const std::string& script) : m_script(script)
  {
    // With a limit or a budget, the state before the first entry would change.
    m_session.editor.history().setLimit(CommandHistory::unlimited);
    m_session.editor.setHistoryBudget(CommandHistory::unlimited);
    if (script.starts_with("## asked"))
      m_session.confirmDiscarding = [this](Session& session) {
        return confirmDiscardingChanges(session, [this](const std::string& question, const auto&) {
          return answerTo(question);
        });
      };
    start();
  }

  void runAll()
  {
    while (!m_session.isOver) {
      const auto line = nextLine();
      if (!line)
        return;
      m_files->isFull = *line == "## full" || (m_files->isFull && *line != "## room");
      requireCompletion(*line, complete(m_session, *line));
      if (run(*line))
        requireAll();
    }
  }

private:
  std::optional<std::string> nextLine()
  {
    try {
      return readLine(m_script);
    } catch (const UserError& error) {
      requireShowable(error.what());
      return std::nullopt;
    }
  }

  std::optional<std::string> answerTo(const std::string& question)
  {
    requireShowable(question);
    return nextLine();
  }

  Edited edited() const
  {
    const auto& history = m_session.editor.history();
    return {m_session.editor.document(),
            stateOf(*m_session.editor.document()),
            {history.entries().begin(), history.entries().end()},
            history.position(),
            m_session.isOver};
  }

  Saved saved() const
  {
    return {m_session.editor.title(), m_session.editor.projectFile(),
            m_session.editor.history().isClean(), m_files->contents};
  }

  void start()
  {
    m_document = m_session.editor.document();
    m_first = stateOf(*m_document);
    m_last = m_first;
    require(m_session.editor.history().entries().empty(), "a new document with a history");
  }

  /// @return whether the document or its history has changed
  bool run(const std::string& line)
  {
    const auto editedBefore = edited();
    const auto savedBefore = saved();
    try {
      requireShowableLines(runLine(m_session, line));
    } catch (const UserError& error) {
      requireShowable(error.what());
      require(edited() == editedBefore, "a mistake that changes the document or its history");
      require(saved() == savedBefore, "a mistake that changes the title, the clean mark or a file");
    }
    const bool isChanged = edited() != editedBefore;
    if (m_session.editor.document() != m_document)
      start();
    return isChanged;
  }

  static void requireShowableLines(std::string_view text)
  {
    while (!text.empty()) {
      const auto line = text.substr(0, text.find('\n'));
      requireShowable(line);
      text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
  }

  void requireAll()
  {
    requireWhole(*m_document);
    auto order = stateOf(*m_document).order;
    require(std::ranges::is_permutation(order, m_first.order), "an order of other elements");
    requireMembers();
    requireUndoAndRedo();
    requireSavable(*m_document);
  }

  void requireMembers()
  {
    for (const auto& group : m_document->getGroups()) {
      const auto& members = group.getGroupMembers();
      for (auto member = members.begin(); member != members.end(); ++member) {
        require(m_document->find(*member) != nullptr, "a member that is no element");
        require(std::find(members.begin(), member, *member) == member, "a member twice in a group");
      }
    }
  }

  void requireUndoAndRedo()
  {
    auto& history = m_session.editor.history();
    const auto position = history.position();
    const auto count = history.entries().size();
    const auto isClean = history.isClean();
    const auto here = stateOf(*m_document);
    if (position == count)
      m_last = here;

    while (history.undo()) {
    }
    require(history.position() == 0 && stateOf(*m_document) == m_first,
            "undoing everything does not lead to the first state");
    while (history.redo()) {
    }
    require(history.position() == count && stateOf(*m_document) == m_last,
            "redoing everything does not lead to the last state");
    history.jumpTo(position);
    require(stateOf(*m_document) == here, "undone, redone and back again, the document differs");
    require(history.isClean() == isClean, "undone, redone and back again, the clean mark differs");
  }

  std::istringstream m_script;
  std::shared_ptr<MemoryFiles> m_files = makeFiles();
  Session m_session = {.editor = Editor(openDocument(*m_files, "points.csv"), m_files)};
  std::shared_ptr<PointDocument> m_document; ///< the one that the history belongs to
  DocumentState m_first;                     ///< before the first entry of the history
  DocumentState m_last;                      ///< after its last entry
};

}
}

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  Tarvik::PointCollections::Run(std::string(data, data + size)).runAll();
  return 0;
}
