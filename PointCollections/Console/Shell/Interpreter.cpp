// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Interpreter.h"

#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Words.h"

#include <fmt/format.h>

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

/// What the history has lost for want of memory; empty if there is nothing to tell.
std::string lossOf(Editor& editor)
{
  const auto steps = editor.takeStepsForgottenInNeed();
  return steps == 0 ? std::string()
                    : pluralize(steps, "step") + " can no longer be undone or redone";
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
  try {
    auto answer = verb.run(session, Arguments(verb, std::span(words).subspan(1)));
    if (const auto loss = lossOf(session.editor); !loss.empty())
      answer += fmt::format("{}There was not enough memory: {}.", answer.empty() ? "" : "\n", loss);
    return answer;
  } catch (const std::bad_alloc&) {
    const auto loss = lossOf(session.editor);
    throw UserError(
        fmt::format("there is not enough memory for this{}{}", loss.empty() ? "" : "; ", loss));
  }
}

}
