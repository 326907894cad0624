// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Session/Lookup.h"
#include "PointCollections/Console/Text/Tree.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <limits>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
constexpr std::size_t usualLimit = 12;

std::string elementLabel(const PointDocument& document, const GUIdentifier& id)
{
  const PointCollection* collection = document.find(id);
  if (collection == nullptr)
    return "(an element that is not in this document)";
  const std::size_t points = collection->points.size();
  return printable(collection->name) + (points == 1 ? "" : ", " + pluralize(points, "point"));
}

/// A heading with the elements below it, in at most `limit` lines. If there are more elements, the
/// last line says how many are left out.
Tree section(const Session& session,
             const std::string& heading,
             const std::vector<GUIdentifier>& elements,
             std::size_t limit)
{
  Tree result = {fmt::format("{} ({})", heading, elements.size())};
  const std::size_t shown = elements.size() > limit ? limit - 1 : elements.size();
  for (std::size_t i = 0; i < shown; ++i)
    result.branches.push_back({elementLabel(*session.editor.document(), elements[i])});
  if (shown < elements.size())
    result.branches.push_back(
        {session.style.faint(fmt::format("… and {} more", elements.size() - shown))});
  return result;
}

std::string nameInTree(const Session& session, const std::string& name)
{
  return session.style.strong(name.empty() ? "\"\"" : printable(name));
}

Tree groupSection(const Session& session, const TKGroup<GUIdentifier>& group, std::size_t limit)
{
  return section(session, nameInTree(session, group.getName()), group.getGroupMembers(), limit);
}

Tree ungroupedSection(const Session& session, std::size_t limit)
{
  return section(session, "ungrouped", session.editor.document()->ungroupedElements(), limit);
}

Tree documentTree(const Session& session, std::size_t limit)
{
  auto& document = *session.editor.document();
  Tree result = {fmt::format("{}: {} in {}",
                             session.style.strong(printable(session.editor.title())),
                             pluralize(document.order().size(), "element"),
                             pluralize(document.getGroups().size(), "group"))};
  for (const auto& group : document.getGroups())
    result.branches.push_back(groupSection(session, group, limit));
  result.branches.push_back(ungroupedSection(session, limit));
  return result;
}

Tree treeToShow(Session& session, const Arguments& arguments)
{
  if (arguments.count() > 0)
    return groupSection(session, groupNamed(*session.editor.document(), arguments.at(0)),
                        unlimited);
  if (arguments.has("--ungrouped"))
    return ungroupedSection(session, unlimited);
  return documentTree(session, arguments.has("--all") ? unlimited : usualLimit);
}

std::string show(Session& session, const Arguments& arguments)
{
  if (arguments.count() + arguments.has("--all") + arguments.has("--ungrouped") > 1)
    throw UserError("more than one thing to show; choose one of GROUP, --all and --ungrouped");
  auto drawing = drawTree(treeToShow(session, arguments));
  drawing.pop_back(); // the last line end
  return drawing;
}

}

Verb showVerb()
{
  return {.name = "show",
          .usage = "show [GROUP | --all | --ungrouped]",
          .summary = "draw the groups with their members, and the ungrouped elements",
          .details =
              "If a group has more than 12 members, only the first 11 are shown; likewise of "
              "the ungrouped\nelements. GROUP shows all members of one group, --ungrouped "
              "all ungrouped elements, --all everything.",
          .example = "show Europe",
          .parameters = {{"GROUP", ArgumentKind::Group, Occurrence::Optionally}},
          .options = {{"--all", std::nullopt}, {"--ungrouped", std::nullopt}},
          .run = show};
}

}
