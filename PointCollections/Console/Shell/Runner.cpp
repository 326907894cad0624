// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Runner.h"

#include "PointCollections/Console/Shell/Completion.h"
#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Console/Shell/UnsavedChanges.h"
#include "PointCollections/Console/Terminal/InputWait.h"
#include "PointCollections/Input/Encoding.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/TextInNeed.h"
#include "PointCollections/Text/Translated.h"
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

/// Runs actions, and reports the exceptions that they throw. The texts for that are there before.
class Reporter {
public:
  explicit Reporter(Transcript& transcript) : m_transcript(transcript) {}

  /// @param where  the place of the action
  /// @return whether it threw none
  template <class Action>
  bool run(std::string_view where, Action&& action) const
  {
    try {
      action();
      return true;
    } catch (const UserError& error) {
      m_transcript.error(where, error.what());
    } catch (const Interrupted&) {
      m_transcript.error(m_stopped.text(), m_nothingChanged.text());
    } catch (const std::bad_alloc&) {
      m_transcript.error(where, m_noMemory.text());
    } catch (const std::exception& error) {
      m_transcript.error(where, m_failed.text(), error.what());
    }
    return false;
  }

private:
  Transcript& m_transcript;
  // For translators: stands before "nothing has changed" and a colon
  TextInNeed m_stopped{translatable("stopped")};
  TextInNeed m_nothingChanged{translatable("nothing has changed")};
  TextInNeed m_noMemory{translatable("there is not enough memory for this")};
  // For translators: the reason follows
  TextInNeed m_failed{translatable("this could not be done: ")};
};

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
  // For translators: stands on the terminal where the user has typed Ctrl-D
  transcript.dialogue(translated("(end of input)"));
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

/// @param warning  what stands before it
void tellNotice(const Session& session, Transcript& transcript, std::string_view warning)
{
  const auto notice = session.takeNotice ? session.takeNotice() : std::string();
  if (!notice.empty())
    transcript.error(warning, notice);
}

}

void lookForUnsavedWork(const Session& session, Transcript& transcript)
{
  const TextInNeed warning(translatable("warning"));
  const TextInNeed noMemory(
      translatable("there is not enough memory to look for unsaved work of an earlier run; open "
                   "the file again to find it"));
  const TextInNeed stopped(
      translatable("the search for unsaved work of an earlier run was stopped; open the file again "
                   "to find it"));
  try {
    if (session.lookForUnsavedWork)
      session.lookForUnsavedWork();
  } catch (const std::bad_alloc&) {
    transcript.error(warning.text(), noMemory.text());
  } catch (const Interrupted&) {
    transcript.error(warning.text(), stopped.text());
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
  const Reporter reporter(transcript);
  std::size_t number = 0;
  for (const auto& command : commands) {
    const auto where = fmt::format("--command:{}", ++number);
    if (!canGoOn(session, transcript))
      return true;
    if (!reporter.run(where, [&] { runScriptLine(session, transcript, command); }))
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
  const Reporter reporter(transcript);
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
    if (!reporter.run(fmt::format("{}:{}", name, number), runNext))
      return false;
  }
  return true;
}

bool runInteractively(Session& session, Transcript& transcript, LineReader& reader)
{
  const QuestionsToUser questions(session, questionsTo(reader, session));
  const Reporter reporter(transcript);
  const TextInNeed error(translatable("error"));
  // For translators: stands before a warning and a colon
  const TextInNeed warning(translatable("warning"));
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
    reporter.run(error.text(), runNext);
    reporter.run(error.text(), [&] { tellNotice(session, transcript, warning.text()); });
  }
  if (session.isOver)
    return isAnswered;
  warnOfUnsavedChanges(session, transcript);
  return !session.editor.hasUnsavedChanges();
}

}
