// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Runner.h"

#include "PointCollections/Console/Shell/Completion.h"
#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Console/Shell/UnsavedChanges.h"
#include "PointCollections/Console/Terminal/InputWait.h"
#include "PointCollections/Input/Encoding.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <cstddef>
#include <exception>
#include <new>
#include <optional>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

bool canGoOn(const Session& session, const Transcript& transcript)
{
  return !session.isOver && transcript.isComplete();
}

/// Runs the action and reports the exception that it throws.
/// @return whether it threw none
template <class Action>
bool runAndReport(Transcript& transcript, const std::string& where, Action&& action)
{
  try {
    action();
    return true;
  } catch (const UserError& error) {
    transcript.error(where, error.what());
  } catch (const Interrupted&) {
    transcript.error("stopped", "nothing has changed");
  } catch (const std::bad_alloc&) {
    transcript.error(where, "there is not enough memory for this");
  } catch (const std::exception& error) {
    transcript.error(where, "this could not be done: ", error.what());
  }
  return false;
}

/// Runs a line, and shows on the terminal if that takes long.
std::string runShown(Session& session, const std::string& line)
{
  const ShownWork work(session.progress, line);
  return runLine(session, line);
}

/// Runs a command, and tells its answer.
void runCommand(Session& session, Transcript& transcript, const std::string& line)
{
  const auto* const documentBefore = session.editor.document().get();
  transcript.result(runShown(session, line));
  if (session.editor.document().get() != documentBefore)
    lookForUnsavedWork(session, transcript);
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
    runCommand(session, transcript, line);
  }
}

/// Lets the verbs ask the user through the reader, while this lives.
class QuestionsToUser {
public:
  QuestionsToUser(Session& session, const Question& ask) : m_session(session)
  {
    session.confirmDiscarding = [ask](Session& asking) {
      const HiddenWork whileAsking(asking.progress);
      return confirmDiscardingChanges(asking, ask);
    };
  }
  QuestionsToUser(const QuestionsToUser&) = delete;
  QuestionsToUser& operator=(const QuestionsToUser&) = delete;
  ~QuestionsToUser() { m_session.confirmDiscarding = nullptr; }

private:
  Session& m_session;
};

/// If the input ends again at the question, nobody is there to answer: the session is over.
/// @return whether somebody has answered
bool leaveAtEndOfInput(Session& session, Transcript& transcript)
{
  transcript.dialogue("(end of input)");
  const auto confirmation = session.confirmDiscarding(session);
  session.isOver = confirmation != Confirmation::Refused;
  if (confirmation == Confirmation::Missing)
    warnOfUnsavedChanges(session, transcript);
  return confirmation != Confirmation::Missing;
}

/// The signal may have come before the work: it must not wait for a pipe then, for example.
void stopWorkIfAskedToEnd()
{
  if (isAskedToEnd())
    Interruptible::request();
}

void tellNotice(const Session& session, Transcript& transcript)
{
  const auto notice = session.takeNotice ? session.takeNotice() : std::string();
  if (!notice.empty())
    transcript.error("warning", notice);
}

}

void lookForUnsavedWork(const Session& session, Transcript& transcript)
{
  try {
    if (session.lookForUnsavedWork)
      session.lookForUnsavedWork();
  } catch (const std::bad_alloc&) {
    transcript.error("warning", "there is not enough memory to look for unsaved work of an earlier "
                                "run; open the file again to find it");
  } catch (const Interrupted&) {
    transcript.error("warning",
                     "the search for unsaved work of an earlier run was stopped; open the "
                     "file again to find it");
  }
}

Question questionsTo(LineReader& reader, Session& session)
{
  return [&](const std::string& prompt, const std::vector<std::string>& answers) {
    auto answer = reader.readAnswer(
        prompt, [&](std::string_view line) { return completeAnswer(session, answers, line); });
    Interruptible::forget(); // Ctrl-C at a question drops the answer only
    stopWorkIfAskedToEnd();
    return answer;
  };
}

bool runCommands(Session& session, Transcript& transcript, const std::vector<std::string>& commands)
{
  std::size_t number = 0;
  for (const auto& command : commands) {
    const auto where = fmt::format("--command:{}", ++number);
    if (!canGoOn(session, transcript))
      return true;
    if (!runAndReport(transcript, where, [&] { runScriptLine(session, transcript, command); }))
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
      if (line && isFirst)
        refuseOtherEncodings(*line);
      if (line && isFirst && line->starts_with(byteOrderMark))
        line->erase(0, byteOrderMark.size());
      if (line)
        runScriptLine(session, transcript, *line);
    };
    if (!runAndReport(transcript, fmt::format("{}:{}", name, number), runNext))
      return false;
  }
  return true;
}

bool runInteractively(Session& session, Transcript& transcript, LineReader& reader)
{
  const QuestionsToUser questions(session, questionsTo(reader, session));
  bool isAnswered = true;
  while (canGoOn(session, transcript)) {
    const auto runNext = [&] {
      const auto line = reader.readLine(session.editor.hasUnsavedChanges() ? "*> " : "> ");
      const Interruptible untilAnswered;
      stopWorkIfAskedToEnd();
      if (line)
        runCommand(session, transcript, *line);
      else
        isAnswered = leaveAtEndOfInput(session, transcript);
    };
    runAndReport(transcript, "error", runNext);
    tellNotice(session, transcript);
  }
  if (session.isOver)
    return isAnswered;
  warnOfUnsavedChanges(session, transcript);
  return !session.editor.hasUnsavedChanges();
}

}
