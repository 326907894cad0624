// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/JsonWriter.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

std::string line(const Session& session, std::size_t number, const std::string& description)
{
  const auto& history = session.editor.history();
  const bool isUndone = number > history.position();
  const bool isClean = history.cleanPosition() == number;
  auto text = fmt::format("{} {:>3}  {}", number == history.position() ? "→" : " ", number,
                          printable(description));
  if (isUndone) {
    // For translators: after a step that is undone.
    text += "  " + translated("(undone)");
  }
  if (isClean) {
    // For translators: after the step whose result was opened or saved last.
    text += "  " + translated("(clean)");
  }
  return isUndone ? session.style.faint(text) : text;
}

std::string nameOfStart(const Editor& editor)
{
  const auto forgotten = editor.forgottenSteps();
  if (forgotten == 0) {
    // For translators: the start of the history, in a list of steps.
    return translated("Start");
  }
  // For translators: in place of "Start", in a list of steps.
  return translatedCount(forgotten, "({} older step forgotten)", "({} older steps forgotten)");
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
    return translated("Only the last step is kept.");
  const auto share =
      static_cast<double>(history.sizeInBytes()) / static_cast<double>(history.budget());
  const auto budget = sizeAsTyped(history.budget());
  if (share < 0.01) {
    // For translators: {} is a number, such as 256M.
    return translated("The steps take less than 1 % of {} bytes.", budget);
  }
  // For translators: {1} is a number, such as 256M.
  return translated("The steps take {} % of {} bytes.", fmt::format("{:.0f}", 100 * share), budget);
}

/// The states that are listed, by their numbers; 0 is the start.
struct StateRange {
  std::size_t first;
  std::size_t last;
};

/// All states; or the given number of them up to the present one, and as many after it.
StateRange statesAsked(const CommandHistory& history, const Arguments& arguments)
{
  const auto steps = history.entries().size();
  if (arguments.count() == 0)
    return {0, steps};
  const auto count =
      positiveNumber(arguments.at(0),
                     translatable("the number of steps is {}; expected a whole number from 1 up"));
  const auto present = history.position();
  return {count > present ? 0 : present - count + 1,
          count > steps - present ? steps : present + count};
}

std::string earlierOmitted(std::size_t steps)
{
  // For translators: in a list of steps.
  return translatedCount(steps, "… {} earlier step not shown", "… {} earlier steps not shown");
}

std::string laterOmitted(std::size_t steps)
{
  // For translators: in a list of steps.
  return translatedCount(steps, "… {} later step not shown", "… {} later steps not shown");
}

std::string listed(const Session& session, StateRange range)
{
  const auto& history = session.editor.history();
  const auto remark = [&](const std::string& text) {
    return session.style.faint("       " + text + '\n');
  };
  std::string result;
  if (range.first == 0)
    result = line(session, 0, nameOfStart(session.editor)) + '\n';
  else if (range.first > 1)
    result = remark(earlierOmitted(range.first - 1));
  for (auto number = std::max<std::size_t>(range.first, 1); number <= range.last; ++number)
    result += line(session, number, history.entries()[number - 1]->getDescription()) + '\n';
  if (const auto later = history.entries().size() - range.last; later > 0)
    result += remark(laterOmitted(later));
  if (!history.entries().empty())
    return result + memoryOf(history);
  result.pop_back(); // the last line end
  return result;
}

std::string asJson(const Session& session, StateRange range)
{
  const auto& history = session.editor.history();
  JsonWriter json;
  json.beginObject().key("position").value(history.position()).key("clean");
  if (const auto clean = history.cleanPosition())
    json.value(*clean);
  else
    json.null();
  json.key("forgotten").value(session.editor.forgottenSteps()).key("steps").beginArray();
  for (auto number = std::max<std::size_t>(range.first, 1); number <= range.last; ++number) {
    json.beginObject().key("number").value(number);
    json.key("description").value(history.entries()[number - 1]->getDescription());
    json.key("undone").value(number > history.position()).endObject();
  }
  return json.endArray().endObject().text();
}

std::string history(Session& session, const Arguments& arguments)
{
  const auto range = statesAsked(session.editor.history(), arguments);
  return arguments.has("--json") ? asJson(session, range) : listed(session, range);
}

}

Verb historyVerb()
{
  return {.name = "history",
          .usage = "history [N] [--json]",
          .summary = translatable("list the steps, with → at the present one"),
          .details =
              [] {
                return translated(
                    "The steps after the mark are undone; redo repeats them. N lists the last N "
                    "steps before the mark, and as many after it. The clean state is the one "
                    "that was opened or saved last. --json writes the list for other programs. "
                    "The oldest steps are forgotten when "
                    "there are more than a thousand, or when they take more memory than the "
                    "option --history-budget allows.");
              },
          .example = "history 10",
          .parameters = {{"N", ArgumentKind::Number, Occurrence::Optionally}},
          .options = {{"--json", std::nullopt}},
          .run = history,
          .answer = AnswerKind::Table};
}

}
