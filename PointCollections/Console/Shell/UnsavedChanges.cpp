// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/UnsavedChanges.h"

#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {

std::string firstWord(const std::string& answer)
{
  const auto start = answer.find_first_not_of(" \t");
  return start == std::string::npos
             ? std::string()
             : answer.substr(start, answer.find_first_of(" \t", start) - start);
}

Confirmation confirmDiscardingChanges(Session& session, const Question& ask)
{
  const auto& editor = session.editor;
  if (!editor.hasUnsavedChanges())
    return Confirmation::Given;
  const auto prompt = fmt::format(
      "{} has unsaved changes. Type {}, discard or cancel: ", displayName(editor.title()),
      editor.projectFile().empty() ? "save FILE" : "save");
  while (const auto answer = ask(prompt, {"save", "discard", "cancel"})) {
    const auto word = firstWord(*answer);
    if (word == "cancel")
      return Confirmation::Refused;
    if (word == "save")
      runLine(session, *answer);
    if (word == "save" || word == "discard")
      return Confirmation::Given;
  }
  return Confirmation::Missing;
}

void warnOfUnsavedChanges(const Session& session, Transcript& transcript)
{
  const auto& editor = session.editor;
  if (!editor.hasUnsavedChanges())
    return;
  const bool areKept = session.keepUnsavedChanges && session.keepUnsavedChanges();
  transcript.error(displayName(editor.title()),
                   areKept ? "the changes are kept for now; open the file again to recover them"
                           : "the changes are not saved; save keeps them");
}

}
