// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Support/Documents.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Sessions for tests, driven by command lines and looked at through names.
namespace Tarvik::PointCollections {

/// A session with such a document, called test.csv.
inline Session sessionOf(std::initializer_list<const char*> names,
                         std::shared_ptr<Files> files = diskFiles())
{
  return {.editor = Editor({documentOf(names), "test.csv"}, std::move(files))};
}

/// Runs the lines and returns the answer to the last one.
inline std::string run(Session& session, std::initializer_list<std::string_view> lines)
{
  std::string answer;
  for (const auto line : lines)
    answer = runLine(session, line);
  return answer;
}

inline std::string ungroupedOf(const Session& session)
{
  return ungroupedOf(*session.editor.document());
}

inline std::string groupsOf(const Session& session)
{
  return groupsOf(*session.editor.document());
}

/// Everything in a session that a line can change.
struct SessionState {
  std::shared_ptr<PointDocument> document;
  std::vector<GUIdentifier> order;
  std::string groups;
  std::vector<std::shared_ptr<CommandBase>> entries;
  std::size_t position;
  bool isClean;
  bool isOver;
  std::string title;
  std::filesystem::path projectFile;

  friend bool operator==(const SessionState& a, const SessionState& b) = default;
};

inline SessionState stateOf(const Session& session)
{
  const auto& editor = session.editor;
  const auto& history = editor.history();
  return {editor.document(),   editor.document()->order(),
          groupsOf(session),   {history.entries().begin(), history.entries().end()},
          history.position(),  history.isClean(),
          session.isOver,      editor.title(),
          editor.projectFile()};
}

/// The message for a line that is wrong, which must leave the session as it was.
inline std::string mistake(Session& session, std::string_view line)
{
  const auto before = stateOf(session);
  auto message = mistakeIn([&] { runLine(session, line); });
  EXPECT_TRUE(stateOf(session) == before) << "this mistake changes the session: " << line;
  return message;
}

}
