// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Runner.h"

#include "PointCollections/Console/Session/DocumentFile.h"
#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <cstddef>
#include <exception>
#include <optional>

namespace Tarvik::PointCollections {
namespace {

bool canGoOn(const Session& session, const Transcript& transcript)
{
  return !session.isOver && transcript.isComplete();
}

/// Does it and tells of what it throws; whether it threw nothing.
template <class Action>
bool succeeds(Transcript& transcript, const std::string& where, Action&& action)
{
  try {
    action();
    return true;
  } catch (const UserError& error) {
    transcript.error(where, error.what());
  } catch (const std::exception& error) {
    transcript.error(where, fmt::format("this could not be done: {}", error.what()));
  }
  return false;
}

void runScriptLine(Session& session, Transcript& transcript, const std::string& line)
{
  switch (kindOf(line)) {
  case LineKind::Blank:
    transcript.endParagraph();
    return;
  case LineKind::Note:
    return;
  case LineKind::Comment:
    transcript.comment(textOfComment(line));
    return;
  case LineKind::Command:
    transcript.command(line);
    transcript.result(runLine(session, line));
  }
}

/// Answers the questions of a session while it lives.
class Person {
public:
  Person(Session& session, LineReader& reader) : m_session(session)
  {
    session.ask = [&reader](const auto& prompt) { return reader.readLine(prompt); };
  }
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  ~Person() { m_session.ask = nullptr; }

private:
  Session& m_session;
};

/// Nobody can be asked for ever: where the answer is the end of the input again, that is it.
void leaveAtEnd(Session& session, Transcript& transcript)
{
  transcript.result("(end of input)");
  const auto farewell = askForFarewell(session);
  session.isOver = farewell != Farewell::Refused;
  if (farewell == Farewell::Unanswered)
    tellOfUnsaved(session, transcript);
}

}

bool runCommands(Session& session, Transcript& transcript, const std::vector<std::string>& commands)
{
  std::size_t number = 0;
  for (const auto& command : commands) {
    const auto where = fmt::format("--command:{}", ++number);
    if (!canGoOn(session, transcript))
      return true;
    if (!succeeds(transcript, where, [&] { runScriptLine(session, transcript, command); }))
      return false;
  }
  return true;
}

bool runScript(Session& session,
               Transcript& transcript,
               std::istream& script,
               const std::string& name)
{
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  std::optional<std::string> line = "";
  for (std::size_t number = 1; line && canGoOn(session, transcript); ++number) {
    const bool isFirst = number == 1;
    const auto runNext = [&] {
      line = readLine(script);
      if (line && isFirst && line->starts_with(byteOrderMark))
        line->erase(0, byteOrderMark.size());
      if (line)
        runScriptLine(session, transcript, *line);
    };
    if (!succeeds(transcript, fmt::format("{}:{}", name, number), runNext))
      return false;
  }
  return true;
}

void runInteractively(Session& session, Transcript& transcript, LineReader& reader)
{
  const Person person(session, reader);
  while (canGoOn(session, transcript)) {
    const auto runNext = [&] {
      const auto line = reader.readLine(session.history.isClean() ? "> " : "*> ");
      if (line)
        transcript.result(runLine(session, *line));
      else
        leaveAtEnd(session, transcript);
    };
    succeeds(transcript, "error", runNext);
  }
  if (!session.isOver)
    tellOfUnsaved(session, transcript);
}

void tellOfUnsaved(const Session& session, Transcript& transcript)
{
  if (!session.history.isClean())
    transcript.error(mentioned(session.title), "the changes are not saved; save keeps them");
}

}
