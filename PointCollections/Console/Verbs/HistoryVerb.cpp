// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <string_view>

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

std::string nameOfStart(const Editor& editor)
{
  const auto forgotten = editor.forgottenSteps();
  return forgotten == 0 ? "Start"
                        : fmt::format("({} forgotten)", pluralize(forgotten, "older step"));
}

/// A byte count as the option --history-budget takes it, in whole units: "256M".
std::string sizeAsTyped(std::size_t bytes)
{
  constexpr std::string_view units = "KMGT";
  std::string unit;
  for (std::size_t i = 0; i < units.size() && bytes >= 1024 && bytes % 1024 == 0; ++i) {
    bytes /= 1024;
    unit = units[i];
  }
  return std::to_string(bytes) + unit;
}

std::string memoryOf(const CommandHistory& history)
{
  if (history.budget() == 0)
    return "Only the last step is kept.";
  const auto share =
      static_cast<double>(history.sizeInBytes()) / static_cast<double>(history.budget());
  return fmt::format("The steps take {} % of {} bytes.",
                     share < 0.01 ? "less than 1" : fmt::format("{:.0f}", 100 * share),
                     sizeAsTyped(history.budget()));
}

std::string history(Session& session, const Arguments&)
{
  const auto& history = session.editor.history();
  std::string result = line(session, 0, nameOfStart(session.editor));
  std::size_t number = 0;
  for (const auto& entry : history.entries())
    result += '\n' + line(session, ++number, entry->getDescription());
  return number == 0 ? result : result + '\n' + memoryOf(history);
}

}

Verb historyVerb()
{
  return {.name = "history",
          .usage = "history",
          .summary = "list the steps, with → at the present one",
          .details = "The steps after the mark are undone; redo repeats them. The clean state is "
                     "the one that was\nopened or saved last. The oldest steps are forgotten when "
                     "there are more than a thousand, or when\nthey take more memory than the "
                     "option --history-budget allows.",
          .example = "history",
          .parameters = {},
          .options = {},
          .run = history};
}

}
