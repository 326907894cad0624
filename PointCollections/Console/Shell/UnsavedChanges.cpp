// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/UnsavedChanges.h"

#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/TextInNeed.h"
#include "PointCollections/Text/Translated.h"

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
  const auto title = displayName(editor.title());
  const auto prompt =
      editor.projectFile().empty()
          // For translators: the user types save, discard or cancel; leave these words in English
          ? translated("{} has unsaved changes. Type save FILE, discard or cancel: ", title)
          // For translators: the user types save, discard or cancel; leave these words in English
          : translated("{} has unsaved changes. Type save, discard or cancel: ", title);
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
  const TextInNeed warning(
      areKept ? translatable("the changes are kept for now; open the file again to recover them")
              // For translators: the second "save" is a command that the user types
              : translatable("the changes are not saved; save keeps them"));
  transcript.error(displayName(editor.title()), warning.text());
}

}
