// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

/// The first few names, and how many more there are.
std::string namesOf(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  constexpr std::size_t mostNames = 6;
  const auto named = elements.size() > mostNames ? mostNames - 1 : elements.size();
  std::string names;
  for (std::size_t i = 0; i < named; ++i)
    names += (i == 0 ? "" : ", ") + displayName(document.getElementName(elements[i]));
  if (named < elements.size())
    names += fmt::format(" … and {} more", elements.size() - named);
  return names;
}

std::string select(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto elements = session.selection().elements(arguments.from(0));
  return fmt::format("{}{}: {}", pluralize(elements.size(), "element"),
                     describeMovement(document, elements, nullptr), namesOf(document, elements));
}

}

Verb selectVerb()
{
  return {.name = "select",
          .usage = "select ELEMENT…",
          .summary = "tell which elements some words select; nothing changes",
          .details =
              "Where a command takes ELEMENT, each word can be\n"
              "  Berlin \"Isle of Man\"   names; in quotes if they have blanks\n"
              "  \"a\\nb\" \"a\\u{200B}\"     in quotes: a line break, a character by its number\n"
              "  B* \"New \"* ?er*        all names that match; ? is one character\n"
              "  Europe:*  @2:*         all members of a group, by its name or its place\n"
              "  Europe:B*  A*:*        those that match; those of all groups that match\n"
              "  Europe:2-5  Europe:7-  members by their places; show GROUP --places tells them\n"
              "  :*  :B*  :1-3          the same of the ungrouped elements\n"
              "  @names.txt             all names in a file, one on each line\n"
              "Quotes take away the meaning of * ? : and @, so \"a*b\" is a name. An element that "
              "several words select counts once. A word that selects nothing is a mistake, and so "
              "is a name that is typed twice.",
          .example = "select Europe:2-5 \"New \"* @names.txt",
          .parameters = {{"ELEMENT", ArgumentKind::Element, Occurrence::OnceOrMore}},
          .options = {},
          .run = select};
}

}
