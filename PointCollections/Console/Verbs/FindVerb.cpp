// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Tree.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Whereabouts.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

char lower(char c)
{
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Whether the name contains the text. The case of A to Z is ignored.
bool contains(std::string_view name, std::string_view text)
{
  return std::search(name.begin(), name.end(), text.begin(), text.end(),
                     [](char a, char b) { return lower(a) == lower(b); }) != name.end();
}

/// What has a text in its name.
struct Finds {
  std::vector<std::size_t> groups; ///< their indices
  std::vector<GUIdentifier> elements;
};

Finds findsOf(PointDocument& document, std::string_view text)
{
  Finds finds;
  const auto& groups = document.getGroups();
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (contains(groups[i].getName(), text))
      finds.groups.push_back(i);
  }
  std::copy_if(document.order().begin(), document.order().end(), std::back_inserter(finds.elements),
               [&](const auto& id) { return contains(document.find(id)->name, text); });
  return finds;
}

/// "2 elements and 1 group", without what there is none of.
std::string countOf(const Finds& finds)
{
  std::vector<std::string> counts;
  if (!finds.elements.empty())
    counts.push_back(countOfElements(finds.elements.size()));
  if (!finds.groups.empty())
    counts.push_back(countOfGroups(finds.groups.size()));
  return listedWithAnd(counts);
}

std::string drawn(const Session& session, const Finds& finds, const std::string& text)
{
  auto& document = *session.editor.document();
  if (finds.groups.empty() && finds.elements.empty())
    return translated("Nothing has {} in its name.", displayName(text));
  // For translators: 2 elements and 1 group with York in the name. It is the heading of a list.
  Tree tree = {translated("{} with {} in the name", countOf(finds), displayName(text))};
  for (const auto index : finds.groups) {
    const auto& group = document.getGroups()[index];
    tree.branches.push_back(
        // For translators: Europe (9): group @2. It has 9 members; the user may type @2 for Europe.
        {translated("{} ({}): group @{}", session.style.strong(listedName(group.getName())),
                    group.getGroupMembers().size(), index + 1)});
  }
  tree.branches.reserve(finds.groups.size() + finds.elements.size());
  const Whereabouts whereabouts(document);
  for (const auto& element : finds.elements) {
    const auto& collection = *document.find(element);
    tree.branches.push_back(
        // For translators: Berlin: place 5 of 9 in Europe (@2).
        {translated("{}: {}", listedName(collection.name), listed(whereabouts.of(collection)))});
  }
  auto drawing = drawTree(tree);
  drawing.pop_back(); // the last line end
  return drawing;
}

std::string asJson(const Session& session, const Finds& finds, const std::string& text)
{
  const auto& groups = session.editor.document()->getGroups();
  JsonWriter json;
  json.beginObject().key("text").value(text);
  json.key("groups").beginArray();
  for (const auto index : finds.groups) {
    json.beginObject();
    json.key("place").value(index + 1);
    json.key("name").value(groups[index].getName());
    json.key("count").value(groups[index].getGroupMembers().size());
    json.endObject();
  }
  json.endArray().key("elements");
  writeElements(json, session, finds.elements);
  return json.endObject().text();
}

std::string find(Session& session, const Arguments& arguments)
{
  const std::string& text = arguments.at(0).text;
  if (text.empty())
    throw UserError(translated("the text to find is empty; show --all lists everything"));
  const auto finds = findsOf(*session.editor.document(), text);
  return arguments.has("--json") ? asJson(session, finds, text) : drawn(session, finds, text);
}

}

Verb findVerb()
{
  return {.name = "find",
          .usage = "find TEXT [--json]",
          .summary = translatable("list the groups and elements that have a text in their names"),
          .details =
              [] {
                return translated(
                    "The case of A to Z is ignored. @2 after a name is the place of a group in the "
                    "list of groups. --json writes the same for other programs, with points.");
              },
          .example = "find york",
          .parameters = {{"TEXT", ArgumentKind::Text}},
          .options = {{"--json", std::nullopt}},
          .run = find,
          .answer = AnswerKind::Table};
}

}
