// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

std::string line(const Session& session, std::size_t number, const std::string& description)
{
  const auto& history = session.history;
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
  for (const auto& entry : session.history.entries())
    result += '\n' + line(session, ++number, entry->getDescription());
  return result;
}

}

Verb historyVerb()
{
  return {.name = "history",
          .usage = "history",
          .summary = "list the changes, the present one marked with →",
          .details = "Changes behind the mark are undone: redo makes them again. The clean state "
                     "is the one that\nwas opened, or saved last.",
          .example = "history",
          .parameters = {},
          .options = {},
          .run = history};
}

}
