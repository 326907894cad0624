// SPDX-License-Identifier: MIT
// Any bytes as a script of the host program, on a small document and files that are on no disk.
// What must hold behind each line is in run(), and behind each change in requireAll().

#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Session/Completion.h"
#include "PointCollections/Session/DocumentFile.h"
#include "PointCollections/Session/Interpreter.h"
#include "PointCollections/Support/MemoryFiles.h"
#include "PointCollections/Text/UserError.h"
#include "Support/Documents.h"
#include "Support/Require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

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

/// Runs a script and knows what the document was like at both ends of its history.
class Run {
public:
  explicit Run(const std::string& script) : m_script(script)
  {
    m_session.files = makeFiles();
    adopt(m_session, readDocument(*m_session.files, "points.csv"));
    if (script.starts_with("## asked")) // a person answers with the lines that follow
      m_session.ask = [this](const std::string&) { return nextLine(); };
    start();
  }

  void runAll()
  {
    while (!m_session.isOver) {
      const auto line = nextLine();
      if (!line)
        return;
      complete(m_session, *line);
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
    const auto before = stateOf(*m_document);
    const auto& history = m_session.history;
    const auto entries = history.entries();
    const auto position = history.position();
    const auto isSame = [&] {
      return m_session.document == m_document && stateOf(*m_document) == before &&
             history.entries() == entries && history.position() == position;
    };
    try {
      requireShowableLines(runLine(m_session, line));
    } catch (const UserError& error) {
      requireShowable(error.what());
      require(isSame(), "a mistake that changes something");
    }
    const bool isChanged = !isSame();
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
