// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/DisplayWidth.h"
#include "PointCollections/Console/Text/Wrapping.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Text/Translated.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

/// Text on the whole width of a large window is hard to read.
std::size_t columnsOf(const Session& session)
{
  constexpr std::size_t mostColumns = 100;
  return session.columns ? std::min(session.columns(), mostColumns) : mostColumns;
}

/// Two lines, whose second column starts at the same place in every language.
std::string usageAndExample(const Verb& verb)
{
  // For translators: before what the user types; aligned with "Example:".
  const auto usage = translated("Usage:");
  // For translators: before what the user types; aligned with "Usage:".
  const auto example = translated("Example:");
  const auto width = std::max(displayWidth(usage), displayWidth(example)) + 2;
  const auto paddingAfter = [width](const std::string& label) {
    return std::string(width - displayWidth(label), ' ');
  };
  return fmt::format("{}{}{}\n{}{}{}", usage, paddingAfter(usage), verb.usage, example,
                     paddingAfter(example), verb.example);
}

std::string helpOn(const Verb& verb, const Style& style, std::size_t columns)
{
  // For translators: a command and what it does: "quit: leave the program.".
  const auto summary = translated("{}: {}.", style.strong(verb.name), translated(verb.summary));
  const auto text = fmt::format("{}\n{}\n\n{}", summary, verb.details(), usageAndExample(verb));
  return wrapped(text, columns);
}

std::string helpOnAll(const std::vector<Verb>& verbs, const Style& style, std::size_t columns)
{
  const auto longest = std::max_element(verbs.begin(), verbs.end(), [](const auto& a, auto& b) {
    return a.name.size() < b.name.size();
  });
  std::string list;
  for (const Verb& verb : verbs) {
    const std::string padding(longest->name.size() - verb.name.size() + 2, ' ');
    list += fmt::format("  {}{}{}\n", style.strong(verb.name), padding, translated(verb.summary));
  }
  const auto closing = translated(
      "Type help and a command to learn more. Put a name with blanks in double quotes; in "
      "them, write \\\" for \" and \\\\ for \\. If groups have the same name, write @2 for the "
      "second group in the list.");
  return wrapped(list + '\n' + closing, columns);
}

}

Verb helpVerb(const std::vector<Verb>& (*verbs)())
{
  return {.name = "help",
          .usage = "help [COMMAND]",
          .summary = translatable("list the commands, or explain one"),
          .details = [] { return translated("Lines that start with # are comments."); },
          .example = "help add",
          .parameters = {{"COMMAND", ArgumentKind::Verb, Occurrence::Optionally}},
          .options = {},
          .run =
              [verbs](Session& session, const Arguments& arguments) {
                return arguments.count() > 0
                           ? helpOn(verbNamed(verbs(), arguments.at(0).text), session.style,
                                    columnsOf(session))
                           : helpOnAll(verbs(), session.style, columnsOf(session));
              },
          .answer = AnswerKind::Table, // it is wrapped already
          .otherNames = {"?"}};
}

}
