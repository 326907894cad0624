// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Interpreter.h"

#include "PointCollections/Console/Shell/AnswerInNeed.h"
#include "PointCollections/Console/Text/Wrapping.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Words.h"

#include <algorithm>
#include <new>
#include <span>

namespace Tarvik::PointCollections {
namespace {

std::string_view withoutLeadingBlanks(std::string_view line)
{
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return line;
}

/// Runs the verb. When memory runs out, the answer still says truly what has been done.
std::string answerOf(const Verb& verb, Session& session, std::span<const Word> words)
{
  AnswerInNeed answerInNeed(session.editor);
  try {
    return verb.run(session, Arguments(verb, words));
  } catch (const std::bad_alloc&) {
    return answerInNeed.take();
  }
}

/// Adds what the history has lost for want of memory, if there is memory for these words.
void addLoss(std::string& answer, Editor& editor)
{
  try {
    const auto loss = lossOf(editor);
    if (loss.empty())
      return;
    answer += answer.empty() ? loss : '\n' + loss;
    editor.takeStepsForgottenInNeed();
  } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): a later answer tells it
  }
}

/// Without memory for that, the answer stays as it is.
void wrap(std::string& answer, std::size_t columns)
{
  try {
    answer = wrapped(answer, columns);
  } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): the terminal breaks the lines
  }
}

}

LineKind kindOf(std::string_view line)
{
  const auto text = withoutLeadingBlanks(line);
  if (text.empty())
    return LineKind::Blank;
  if (text[0] != '#')
    return LineKind::Command;
  return text.starts_with("##") || text.starts_with("#!") ? LineKind::Note : LineKind::Comment;
}

std::string_view textOfComment(std::string_view line)
{
  auto text = withoutLeadingBlanks(line);
  text.remove_prefix(text.starts_with("# ") ? 2 : 1);
  return text;
}

std::string runLine(Session& session, std::string_view line)
{
  if (kindOf(line) != LineKind::Command)
    return {};
  const auto words = splitWords(line);
  const Verb& verb = verbNamed(allVerbs(), words.front().text);
  auto answer = answerOf(verb, session, std::span(words).subspan(1));
  addLoss(answer, session.editor);
  if (session.columns && verb.answer == AnswerKind::Message)
    wrap(answer, session.columns());
  return answer;
}

}
