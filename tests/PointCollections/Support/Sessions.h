// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Session/Interpreter.h"
#include "PointCollections/Session/Session.h"
#include "PointCollections/Text/UserError.h"

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

/// A document whose elements have these names and one point each.
inline std::shared_ptr<PointDocument> documentOf(std::initializer_list<const char*> names)
{
  std::vector<PointCollection> collections;
  for (const char* name : names)
    collections.push_back({.id = GUIdentifier(), .name = name, .points = {Point()}});
  return PointDocument::create(collections);
}

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

/// What the call has to say against its input; "no mistake" when it takes it.
template <class Call>
std::string mistakeIn(Call&& call)
{
  try {
    call();
  } catch (const UserError& error) {
    return error.what();
  }
  return "no mistake";
}

inline std::vector<std::string> namesOf(const PointDocument& document,
                                        const std::vector<GUIdentifier>& ids)
{
  std::vector<std::string> names;
  for (const auto& id : ids) {
    const auto* collection = document.find(id);
    names.push_back(collection != nullptr ? collection->name : "?");
  }
  return names;
}

/// What is in no group, in the document's order: "a b".
inline std::string ungroupedOf(const Session& session)
{
  std::string result;
  for (const auto& name : namesOf(*session.document, session.document->getUngroupedElements()))
    result += (result.empty() ? "" : " ") + name;
  return result;
}

/// The groups in short: "A(a b) B()".
inline std::string groupsOf(const Session& session)
{
  std::string result;
  for (const auto& group : session.document->getGroups()) {
    result += (result.empty() ? "" : " ") + group.getName() + '(';
    for (const auto& name : namesOf(*session.document, group.getGroupMembers()))
      result += (result.ends_with('(') ? "" : " ") + name;
    result += ')';
  }
  return result;
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
