// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/RecoveryOffer.h"

#include "PointCollections/Console/Text/Wrapping.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// The user's decision; later at the end of the input.
std::string answerTo(const Question& ask)
{
  // For translators: the user types recover, discard or later; leave these words in English
  const auto prompt = translated("Type recover, discard or later: ");
  while (const auto line = ask(prompt, {"recover", "discard", "later"})) {
    auto answer = firstWord(*line);
    if (answer == "recover" || answer == "discard" || answer == "later")
      return answer;
  }
  return "later";
}

void tell(const Session& session, Transcript& transcript, const std::string& text)
{
  transcript.dialogue(session.columns ? wrapped(text, session.columns()) : text);
}

void tellMistakes(Transcript& transcript, const FoundWork& found)
{
  for (const auto& mistake : found.mistakes)
    // For translators: stands before a mistake in unsaved work that is to be recovered, and a colon
    transcript.error(translated("recovery"), mistake);
}

}

void offerUnsavedWork(Session& session,
                      Transcript& transcript,
                      Recovery& recovery,
                      FoundWork found,
                      const Question& ask)
{
  tellMistakes(transcript, found);
  for (auto& work : found.works) {
    tell(session, transcript,
         // For translators: the name of a file, and what the changes are, as in "2 elements with 4
         // points, written on 2026-02-28 at 13:59:00"
         translated("An earlier run ended without saving its changes to {}: {}.",
                    displayName(work.record.opened.title), summaryOf(work)));
    const auto answer = answerTo(ask);
    if (answer == "discard")
      work.remove();
    if (answer != "recover")
      continue;
    session.editor.replaceWithUnsaved(work.record.opened);
    recovery.adopt(std::move(work));
    tell(session, transcript,
         // For translators: {} is a document and its content, as in "cities.tkpc: 2 elements with 4
         // points"
         translated("Recovered {}. It is not saved yet.", summaryOf(session.editor)));
    return;
  }
}

void tellOfUnsavedWork(const Session& session, Transcript& transcript, const FoundWork& found)
{
  tellMistakes(transcript, found);
  for (const auto& work : found.works)
    transcript.error(displayName(session.editor.title()),
                     translated("an earlier run ended without saving its changes ({}); they are "
                                "offered when the program is started on a terminal",
                                summaryOf(work)));
}

}
