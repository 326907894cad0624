// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/JsonWriter.h"
#include "PointCollections/Console/Text/Tree.h"
#include "PointCollections/Console/Verbs/DocumentJson.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Whereabouts.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Selection/SelectionTerm.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/NearestName.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
constexpr std::size_t usualLimit = 12;

std::string elementLabel(const PointDocument& document, const GUIdentifier& id)
{
  const PointCollection* collection = document.find(id);
  if (collection == nullptr)
    return translated("(an element that is not in this document)");
  const std::size_t points = collection->points.size();
  auto name = listedName(collection->name);
  if (points == 1)
    return name;
  // For translators: Berlin, 3 points.
  return translated("{}, {}", name, countOfPoints(points));
}

/// How elements are listed.
struct Listing {
  std::size_t limit;      ///< how many lines a section has at most
  bool hasPlaces = false; ///< before each element, counted from 1
};

/// A heading with the elements below it, in as many lines as the listing allows. If there are more
/// elements, the last line says how many are left out.
Tree section(const Session& session,
             const std::string& heading,
             const std::vector<GUIdentifier>& elements,
             Listing listing)
{
  Tree result = {heading};
  const std::size_t shown = elements.size() > listing.limit ? listing.limit - 1 : elements.size();
  for (std::size_t i = 0; i < shown; ++i)
    result.branches.push_back({(listing.hasPlaces ? fmt::format("{:>3}  ", i + 1) : "") +
                               elementLabel(*session.editor.document(), elements[i])});
  if (shown < elements.size()) {
    // For translators: how many elements are left out at the end of a list.
    const auto rest = translatedCount(elements.size() - shown, "… and {} more", "… and {} more");
    result.branches.push_back({session.style.faint(rest)});
  }
  return result;
}

std::string nameInTree(const Session& session, const std::string& name)
{
  return session.style.strong(listedName(name));
}

/// "Europe (9)"
std::string headingOf(const Session& session, const TKGroup<GUIdentifier>& group)
{
  return fmt::format("{} ({})", nameInTree(session, group.getName()),
                     group.getGroupMembers().size());
}

std::string headingOfUngrouped(std::size_t elements)
{
  // For translators: the heading of the list of ungrouped elements, with their number.
  return translatedCount(elements, "ungrouped ({})", "ungrouped ({})");
}

Tree groupSection(const Session& session, const TKGroup<GUIdentifier>& group, Listing listing)
{
  return section(session, headingOf(session, group), group.getGroupMembers(), listing);
}

Tree ungroupedSection(const Session& session, Listing listing)
{
  const auto elements = session.editor.document()->ungroupedElements();
  return section(session, headingOfUngrouped(elements.size()), elements, listing);
}

std::string titleLine(const Session& session)
{
  auto& document = *session.editor.document();
  // For translators: {0} is the name of the document: "continents.tkpc: 9 elements in 2 groups".
  return translated("{}: {} in {}", session.style.strong(listedName(session.editor.title())),
                    countOfElements(document.order().size()),
                    countOfGroups(document.getGroups().size()));
}

Tree documentTree(const Session& session, Listing listing)
{
  Tree result = {titleLine(session)};
  for (const auto& group : session.editor.document()->getGroups())
    result.branches.push_back(groupSection(session, group, listing));
  result.branches.push_back(ungroupedSection(session, listing));
  return result;
}

/// One line for each group.
Tree groupsTree(const Session& session)
{
  auto& document = *session.editor.document();
  Tree result = {titleLine(session)};
  std::size_t place = 0;
  for (const auto& group : document.getGroups())
    result.branches.push_back(
        {fmt::format("{:>3}  {}", fmt::format("@{}", ++place), headingOf(session, group))});
  result.branches.push_back({headingOfUngrouped(document.ungroupedElements().size())});
  return result;
}

/// Whether the word is meant for a group: a place, or the name of one.
bool isGroup(PointDocument& document, const Word& word)
{
  const auto names = groupNames(document);
  return (word.findPlain("@") == 0 &&
          word.text.find_first_not_of("0123456789", 1) == std::string::npos) ||
         (!word.isMixed() && std::find(names.begin(), names.end(), word.text) != names.end());
}

/// Refuses one word that is plainly a name, but not of anything.
void checkName(PointDocument& document, const Word& word)
{
  const auto term = termOf(word);
  if (term.kind != SelectionTerm::Kind::Name || term.group ||
      document.findByName(word.text) != nullptr)
    return;
  auto names = groupNames(document);
  const auto elements = elementNames(document);
  names.insert(names.end(), elements.begin(), elements.end());
  // For translators: in place of "did you mean {}?".
  const auto otherwise = translated("show --groups lists the groups");
  // For translators: {1} is "; did you mean Europe?" or "; show --groups lists the groups".
  throw UserError(translated("there is no group or element named {}{}", displayName(word.text),
                             suggestion(word.text, names, otherwise)));
}

std::string elementsShown(Session& session, const Arguments& arguments)
{
  if (arguments.count() == 1)
    checkName(*session.editor.document(), arguments.at(0));
  const auto elements = session.selection().elements(arguments.from(0));
  if (!arguments.has("--json"))
    return describeElements(session, elements);
  JsonWriter json;
  json.beginObject().key("elements");
  writeElements(json, session, elements);
  return json.endObject().text();
}

std::string asJson(const Session& session, const Arguments& arguments)
{
  if (arguments.count() > 0)
    return groupAsJson(session, groupIndex(*session.editor.document(), arguments.at(0)));
  if (arguments.has("--groups"))
    return groupsAsJson(session);
  return arguments.has("--ungrouped") ? ungroupedAsJson(session) : documentAsJson(session);
}

Tree treeToShow(const Session& session, const Arguments& arguments)
{
  const bool hasPlaces = arguments.has("--places");
  if (arguments.count() > 0)
    return groupSection(session, groupNamed(*session.editor.document(), arguments.at(0)),
                        {unlimited, hasPlaces});
  if (arguments.has("--groups"))
    return groupsTree(session);
  if (arguments.has("--ungrouped"))
    return ungroupedSection(session, {unlimited, hasPlaces});
  return documentTree(session, {arguments.has("--all") ? unlimited : usualLimit, hasPlaces});
}

std::string show(Session& session, const Arguments& arguments)
{
  if ((arguments.count() > 0 ? 1 : 0) + arguments.has("--all") + arguments.has("--groups") +
          arguments.has("--ungrouped") >
      1)
    throw UserError(translated("more than one thing to show; choose one of GROUP, ELEMENT, --all, "
                               "--groups and --ungrouped"));
  if (arguments.count() > 1 ||
      (arguments.count() == 1 && !isGroup(*session.editor.document(), arguments.at(0))))
    return elementsShown(session, arguments);
  if (arguments.has("--json"))
    return asJson(session, arguments);
  auto drawing = drawTree(treeToShow(session, arguments));
  drawing.pop_back(); // the last line end
  return drawing;
}

}

Verb showVerb()
{
  return {.name = "show",
          .usage = "show [GROUP | ELEMENT… | --all | --groups | --ungrouped] [--places] [--json]",
          .summary = translatable("draw the groups with their members, and the ungrouped elements"),
          .details =
              [] {
                return translated(
                    "If a group has more than 12 members, only the first 11 are shown; likewise of "
                    "the ungrouped elements. GROUP shows all members of one group, --ungrouped "
                    "all ungrouped elements, --all everything, --groups one line for each group. "
                    "ELEMENT shows the same as where. --places numbers the elements. --json writes "
                    "everything for other programs. help select explains ELEMENT.");
              },
          .example = "show Europe",
          .parameters = {{"GROUP", ArgumentKind::Any, Occurrence::AnyNumber, "what"}},
          .options = {{"--all", std::nullopt, "", "what"},
                      {"--groups", std::nullopt, "", "what"},
                      {"--ungrouped", std::nullopt, "", "what"},
                      {"--places", std::nullopt},
                      {"--json", std::nullopt}},
          .run = show,
          .answer = AnswerKind::Table,
          .otherNames = {"ls"}};
}

}
