// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

std::string helpOn(const Verb& verb, const Style& style)
{
  return fmt::format("{}: {}.\n{}\n\nUsage:    {}\nExample:  {}", style.strong(verb.name),
                     verb.summary, verb.details, verb.usage, verb.example);
}

std::string helpOnAll(const std::vector<Verb>& verbs, const Style& style)
{
  const auto longest = std::max_element(verbs.begin(), verbs.end(), [](const auto& a, auto& b) {
    return a.name.size() < b.name.size();
  });
  std::string list;
  for (const Verb& verb : verbs) {
    const std::string padding(longest->name.size() - verb.name.size() + 2, ' ');
    list += fmt::format("  {}{}{}\n", style.strong(verb.name), padding, verb.summary);
  }
  return list +
         "\nType help and a command to learn more. Put a name with blanks in double quotes; in "
         "them, write\n\\\" for \" and \\\\ for \\. If groups have the same name, write @2 for the "
         "second group in the list.";
}

}

Verb helpVerb(const std::vector<Verb>& (*verbs)())
{
  return {.name = "help",
          .usage = "help [COMMAND]",
          .summary = "list the commands, or explain one",
          .details = "Lines that start with # are comments.",
          .example = "help add",
          .parameters = {{"COMMAND", ArgumentKind::Verb, Occurrence::Optionally}},
          .options = {},
          .run =
              [verbs](Session& session, const Arguments& arguments) {
                return arguments.count() > 0
                           ? helpOn(verbNamed(verbs(), arguments.at(0).text), session.style)
                           : helpOnAll(verbs(), session.style);
              },
          .otherNames = {"?"}};
}

}
