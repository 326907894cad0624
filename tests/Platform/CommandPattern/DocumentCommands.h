// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// Commands that change a small document, note what is called, and fail on request.
namespace Tarvik {

/// Thrown by a call that is to fail. Its text is that call.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

inline std::string joined(const std::vector<std::string>& parts, const std::string& separator)
{
  std::string text;
  for (const auto& part : parts)
    text += (text.empty() ? "" : separator) + part;
  return text;
}

/// What the commands of a test change: each appends its name, and removes it again.
class Document {
public:
  /// The names of the commands in effect: "A B C".
  std::string text() const { return joined(m_names, " "); }

  /// The calls since the last takeCalls(), and which of them threw: "execute A, execute B failed".
  std::string takeCalls() { return joined(std::exchange(m_calls, {}), ", "); }

  /// From now on, a call such as "undo B" fails.
  void failAt(const std::string& call) { m_failing.insert(call); }

  void failNowhere() { m_failing.clear(); }

  /// Notes a call.
  /// @throws Failure when it is to fail
  void note(const std::string& call)
  {
    const bool fails = m_failing.contains(call);
    m_calls.push_back(fails ? call + " failed" : call);
    if (fails)
      throw Failure(call);
  }

  void append(const std::string& name) { m_names.push_back(name); }

  void takeOff(const std::string& name)
  {
    const auto found = std::find(m_names.rbegin(), m_names.rend(), name);
    ASSERT_NE(found, m_names.rend()) << name << " is undone but not in effect: " << text();
    m_names.erase(std::next(found).base());
  }

private:
  std::vector<std::string> m_names;
  std::vector<std::string> m_calls;
  std::set<std::string> m_failing;
};

/// Appends its name, which is also its description.
class AppendCommand : public CommandBase {
public:
  AppendCommand(Document& document, const std::string& name)
      : CommandBase(name), m_document(document)
  {}

  void execute() override
  {
    m_document.note("execute " + getDescription());
    m_document.append(getDescription());
  }

  void undo() override
  {
    m_document.note("undo " + getDescription());
    m_document.takeOff(getDescription());
  }

  void redo() override
  {
    m_document.note("redo " + getDescription());
    m_document.append(getDescription());
  }

  /// False for a name that ends in an exclamation mark.
  bool isRedoCapable() override { return !getDescription().ends_with('!'); }

private:
  Document& m_document;
};

inline std::shared_ptr<CommandBase> append(Document& document, const std::string& name)
{
  return std::make_shared<AppendCommand>(document, name);
}

/// The names in a text: "A B C".
inline std::vector<std::string> words(const std::string& text)
{
  std::vector<std::string> result;
  std::istringstream stream(text);
  for (std::string word; stream >> word;)
    result.push_back(word);
  return result;
}

/// The text of the Failure that an action throws; "nothing" when it throws none.
template <class Action>
std::string failureOf(Action action)
{
  try {
    action();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "nothing";
}

}
