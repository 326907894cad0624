// SPDX-License-Identifier: MIT
// Any bytes as a script of the host program, on a small document and files that are on no disk.
// What must hold behind each line is in run(), and behind each change in requireAll(). A first line
// "## asked" makes the lines that follow a question its answers; "## full" fills the disk from
// there on, and "## room" makes room on it again.

#include "PointCollections/Console/Session/DocumentFile.h"
#include "PointCollections/Console/Shell/Completion.h"
#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Console/Text/Words.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Support/MemoryFiles.h"
#include "PointCollections/Text/UserError.h"
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

/// What a change of the document or a step in its history alters.
struct Edited {
  std::shared_ptr<PointDocument> document;
  DocumentState content;
  std::vector<std::shared_ptr<CommandBase>> entries;
  std::size_t position;
  bool isOver;

  friend bool operator==(const Edited& a, const Edited& b) = default;
};

/// What saving alters.
struct Saved {
  std::string title;
  std::filesystem::path projectFile;
  std::size_t projectContent;
  bool isClean;
  std::map<std::string, std::string> files;

  friend bool operator==(const Saved& a, const Saved& b) = default;
};

std::string lastWord(std::string_view line)
{
  const auto split = splitUnfinished(line);
  const bool isBehindIt = split.last.text.empty() && !split.words.empty();
  return isBehindIt ? split.words.back().text : split.last.text;
}

/// The line can be replaced from there, by something that can be shown and in which the word that
/// is being typed has not become shorter.
void requireCompletion(std::string_view line, const Completion& completion)
{
  require(completion.from <= line.size(), "a completion from behind the end of the line");
  std::ranges::for_each(completion.candidates, requireShowable);
  if (completion.candidates.empty())
    return;
  requireShowable(completion.text);
  const auto completed = std::string(line.substr(0, completion.from)) + completion.text;
  require(lastWord(completed).size() >= splitUnfinished(line).last.text.size(),
          "a completion that takes away what was typed");
}

/// Runs a script and knows what the document was like at both ends of its history.
class Run {
public:
  explicit Run(const std::string& script) : m_script(script)
  {
    m_session.files = m_files;
    m_session.history.setLimit(CommandHistory::unlimited); // else the beginning would move along
    adopt(m_session, readDocument(*m_files, "points.csv"));
    if (script.starts_with("## asked")) // a person answers with the lines that follow
      m_session.ask = [this](const std::string& question) { return answerTo(question); };
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
    const auto& history = m_session.history;
    return {m_session.document, stateOf(*m_session.document), history.entries(), history.position(),
            m_session.isOver};
  }

  Saved saved() const
  {
    return {m_session.title, m_session.projectFile, m_session.projectContent,
            m_session.history.isClean(), m_files->contents};
  }

  void start()
  {
    m_document = m_session.document;
    m_first = stateOf(*m_document);
    m_last = m_first;
    require(m_session.history.entries().empty(), "a new document with a history");
  }

  /// @return whether anything has changed
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
    if (m_session.document != m_document)
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
    require(std::ranges::is_permutation(order, m_first.order),
            "another order than one of the same elements");
    requireMembers();
    requireTheWayBackAndForth();
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

  void requireTheWayBackAndForth()
  {
    auto& history = m_session.history;
    const auto position = history.position();
    const auto count = history.entries().size();
    const auto isClean = history.isClean();
    const auto here = stateOf(*m_document);
    if (position == count)
      m_last = here;

    while (history.undo()) {
    }
    require(history.position() == 0 && stateOf(*m_document) == m_first,
            "undoing everything does not lead to the beginning");
    while (history.redo()) {
    }
    require(history.position() == count && stateOf(*m_document) == m_last,
            "redoing everything does not lead to the end");
    history.jumpTo(position);
    require(stateOf(*m_document) == here, "there and back, the document is another one");
    require(history.isClean() == isClean, "there and back, it is saved or no longer so");
  }

  std::istringstream m_script;
  std::shared_ptr<MemoryFiles> m_files = makeFiles();
  Session m_session = {PointDocument::create(), "points.csv"};
  std::shared_ptr<PointDocument> m_document; ///< the one that the history is of
  DocumentState m_first;                     ///< in front of the first entry of the history
  DocumentState m_last;                      ///< behind its last one
};

}
}

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  Tarvik::PointCollections::Run(std::string(data, data + size)).runAll();
  return 0;
}
