// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

/// The first few names, and how many more there are.
std::string namesOf(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  constexpr std::size_t mostNames = 6;
  const auto named = elements.size() > mostNames ? mostNames - 1 : elements.size();
  std::vector<std::string> names;
  for (const auto& element : std::span(elements).first(named))
    names.push_back(displayName(document.getElementName(element)));
  auto list = listed(names);
  if (named == elements.size())
    return list;
  // For translators: {1} is a list of names; {0} is how many more elements there are.
  return translatedCount(elements.size() - named, "{1} … and {0} more", "{1} … and {0} more", list);
}

std::string select(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto elements = session.selection().elements(arguments.from(0));
  // For translators: {0} is "2 elements"; {1} is empty or " (1 from Europe)"; {2} is their names.
  return translated("{}{}: {}", countOfElements(elements.size()),
                    describeMovement(document, elements, nullptr), namesOf(document, elements));
}

/// Words that the user can type, and what they mean.
struct Explanation {
  std::string_view words;
  const char* meaning;
};

constexpr std::array<Explanation, 8> explanations = {{
    // For translators: explains: Berlin "Isle of Man"
    {R"(Berlin "Isle of Man")", translatable("names; in quotes if they have blanks")},
    // For translators: explains: "a\nb" "a\u{200B}"
    {R"("a\nb" "a\u{200B}")", translatable("in quotes: a line break, a character by its number")},
    // For translators: explains: B* "New "* ?er*
    {R"(B* "New "* ?er*)", translatable("all names that match; ? is one character")},
    // For translators: explains: Europe:*  @2:*
    {"Europe:*  @2:*", translatable("all members of a group, by its name or its place")},
    // For translators: explains: Europe:B*  A*:*
    {"Europe:B*  A*:*", translatable("those that match; those of all groups that match")},
    {"Europe:2-5  Europe:7-",
     // For translators: explains: Europe:2-5  Europe:7-
     translatable("members by their places; show GROUP --places tells them")},
    // For translators: explains: :*  :B*  :1-3
    {":*  :B*  :1-3", translatable("the same of the ungrouped elements")},
    // For translators: explains: @names.txt
    {"@names.txt", translatable("all names in a file, one on each line")},
}};

/// A table, one explanation on each line.
std::string table()
{
  std::size_t longest = 0;
  for (const auto& explanation : explanations)
    longest = std::max(longest, explanation.words.size());
  std::string lines;
  for (const auto& [words, meaning] : explanations)
    lines += fmt::format("  {:<{}}{}\n", words, longest + 2, translated(meaning));
  return lines;
}

std::string details()
{
  // For translators: a table comes after it. ELEMENT stays as it is.
  const auto start = translated("Where a command takes ELEMENT, each word can be");
  // For translators: after a table of what ELEMENT can be.
  const auto end = translated(
      "Quotes take away the meaning of * ? : and @, so \"a*b\" is a name. An element that "
      "several words select counts once. A word that selects nothing is a mistake, and so "
      "is a name that is typed twice.");
  return start + '\n' + table() + end;
}

}

Verb selectVerb()
{
  return {.name = "select",
          .usage = "select ELEMENT…",
          .summary = translatable("tell which elements some words select; nothing changes"),
          .details = details,
          .example = "select Europe:2-5 \"New \"* @names.txt",
          .parameters = {{"ELEMENT", ArgumentKind::Element, Occurrence::OnceOrMore}},
          .options = {},
          .run = select};
}

}
