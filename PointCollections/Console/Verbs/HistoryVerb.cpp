// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

std::string line(const Session& session, std::size_t number, const std::string& description)
{
  const auto& history = session.editor.history();
  const bool isUndone = number > history.position();
  const bool isClean = history.cleanPosition() == number;
  const auto text =
      fmt::format("{} {:>3}  {}{}{}", number == history.position() ? "→" : " ", number,
                  printable(description), isUndone ? "  (undone)" : "", isClean ? "  (clean)" : "");
  return isUndone ? session.style.faint(text) : text;
}

std::string history(Session& session, const Arguments&)
{
  std::string result = line(session, 0, "Start");
  std::size_t number = 0;
  for (const auto& entry : session.editor.history().entries())
    result += '\n' + line(session, ++number, entry->getDescription());
  return result;
}

}

Verb historyVerb()
{
  return {.name = "history",
          .usage = "history",
          .summary = "list the steps, with → at the present one",
          .details = "The steps after the mark are undone; redo repeats them. The clean state is "
                     "the one that was\nopened or saved last.",
          .example = "history",
          .parameters = {},
          .options = {},
          .run = history};
}

}
