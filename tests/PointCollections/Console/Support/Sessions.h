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
#include <vector>

/// Sessions for tests, driven by command lines and looked at through names.
namespace Tarvik::PointCollections {

inline Session sessionOf(std::initializer_list<const char*> names)
{
  return {documentOf(names), "test.csv"};
}

/// Runs the lines; what the last one answers.
inline std::string run(Session& session, std::initializer_list<std::string_view> lines)
{
  std::string answer;
  for (const auto line : lines)
    answer = runLine(session, line);
  return answer;
}

inline std::string ungroupedOf(const Session& session)
{
  return ungroupedOf(*session.document);
}

inline std::string groupsOf(const Session& session)
{
  return groupsOf(*session.document);
}

/// All of a session that a line can change.
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
  std::size_t projectContent;

  friend bool operator==(const SessionState& a, const SessionState& b) = default;
};

inline SessionState stateOf(const Session& session)
{
  const auto& history = session.history;
  return {session.document,    session.document->order(), groupsOf(session), history.entries(),
          history.position(),  history.isClean(),         session.isOver,    session.title,
          session.projectFile, session.projectContent};
}

/// What is wrong with the line, which must leave the session as it was.
inline std::string mistake(Session& session, std::string_view line)
{
  const auto before = stateOf(session);
  auto message = mistakeIn([&] { runLine(session, line); });
  EXPECT_TRUE(stateOf(session) == before) << "this mistake changes the session: " << line;
  return message;
}

}
