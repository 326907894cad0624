// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/RecoveryOffer.h"

#include "PointCollections/Console/Text/Wrapping.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// The user's decision; later at the end of the input.
std::string answerTo(const Question& ask)
{
  while (const auto line =
             ask("Type recover, discard or later: ", {"recover", "discard", "later"})) {
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
    transcript.error("recovery", mistake);
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
         fmt::format("An earlier run ended without saving its changes to {}: {}.",
                     displayName(work.record.opened.title), summaryOf(work)));
    const auto answer = answerTo(ask);
    if (answer == "discard")
      work.remove();
    if (answer != "recover")
      continue;
    session.editor.replaceWithUnsaved(work.record.opened);
    recovery.adopt(std::move(work));
    tell(session, transcript,
         fmt::format("Recovered {}. It is not saved yet.", summaryOf(session.editor)));
    return;
  }
}

void tellOfUnsavedWork(const Session& session, Transcript& transcript, const FoundWork& found)
{
  tellMistakes(transcript, found);
  for (const auto& work : found.works)
    transcript.error(displayName(session.editor.title()),
                     fmt::format("an earlier run ended without saving its changes ({}); they are "
                                 "offered when the program is started on a terminal",
                                 summaryOf(work)));
}

}
