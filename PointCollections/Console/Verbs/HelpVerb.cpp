// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AllVerbs.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

std::string helpOn(const Verb& verb, const Style& style)
{
  return fmt::format("{}: {}.\n{}\n\nUsage:    {}\nExample:  {}", style.strong(verb.name),
                     verb.summary, verb.details, verb.usage, verb.example);
}

std::string listOfVerbs(const Style& style)
{
  const auto& verbs = allVerbs();
  const auto longest = std::max_element(verbs.begin(), verbs.end(), [](const auto& a, auto& b) {
    return a.name.size() < b.name.size();
  });
  std::string list;
  for (const Verb& verb : verbs) {
    const std::string padding(longest->name.size() - verb.name.size() + 2, ' ');
    list += fmt::format("  {}{}{}\n", style.strong(verb.name), padding, verb.summary);
  }
  return list + "\nType help and a verb to learn more. Names with blanks go in double quotes, "
                "where \\\" and \\\\ stand\nfor \" and \\. Of groups that have the same name, @2 "
                "means the second group of all.";
}

std::string help(Session& session, const Arguments& arguments)
{
  return arguments.count() > 0 ? helpOn(verbNamed(arguments.at(0).text), session.style)
                               : listOfVerbs(session.style);
}

}

Verb helpVerb()
{
  return {.name = "help",
          .usage = "help [VERB]",
          .summary = "list the verbs, or explain one",
          .details = "Lines that start with # are comments.",
          .example = "help add",
          .parameters = {{"VERB", ArgumentKind::Verb, Occurrence::Optionally}},
          .options = {},
          .run = help};
}

}
