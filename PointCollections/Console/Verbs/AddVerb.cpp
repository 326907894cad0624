// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "PointCollections/Console/Session/Lookup.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace Tarvik::PointCollections {
namespace {

constexpr int atTheEnd = -1;

int checkedIndex(std::size_t index)
{
  if (index > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    throw UserError("this place is too far behind in the group; use --end");
  return static_cast<int>(index);
}

int indexOfPlace(const TKGroup<GUIdentifier>& group, const Word& word)
{
  const std::size_t members = group.getGroupMembers().size();
  const std::size_t place = positiveNumber(word, "the place behind --at");
  if (place > members + 1)
    throw UserError(fmt::format("--at {} is behind the end; {} has {}, so N is from 1 to {}",
                                word.text, mentioned(group.getName()), counted(members, "member"),
                                members + 1));
  return checkedIndex(place - 1);
}

int indexOfMember(PointDocument& document, const TKGroup<GUIdentifier>& group, const Word& word)
{
  const auto& members = group.getGroupMembers();
  const auto found = std::find(members.begin(), members.end(), elementNamed(document, word));
  if (found == members.end())
    throw UserError(fmt::format("{} is not in {}; name one of its members behind --before",
                                mentioned(word.text), mentioned(group.getName())));
  return checkedIndex(static_cast<std::size_t>(found - members.begin()));
}

int insertIndex(PointDocument& document,
                const TKGroup<GUIdentifier>& group,
                const Arguments& arguments)
{
  if (arguments.has("--at") + arguments.has("--before") + arguments.has("--end") > 1)
    throw UserError("more than one place is given; choose one of --at, --before and --end");
  if (arguments.has("--at"))
    return indexOfPlace(group, arguments.valueOf("--at"));
  if (arguments.has("--before"))
    return indexOfMember(document, group, arguments.valueOf("--before"));
  return atTheEnd;
}

/// Whether the elements stand in front of that place of the group, or from it on, already.
bool areInPlace(PointDocument& document,
                const TKGroup<GUIdentifier>& group,
                const std::vector<GUIdentifier>& elements,
                int index)
{
  if (!std::all_of(elements.begin(), elements.end(),
                   [&](const auto& id) { return document.holderOf(id) == &group; }))
    return false;
  const auto& members = group.getGroupMembers();
  const auto place = index == atTheEnd ? members.size() : static_cast<std::size_t>(index);
  const auto standFrom = [&](std::size_t start) {
    return std::equal(elements.begin(), elements.end(),
                      members.begin() + static_cast<std::ptrdiff_t>(start));
  };
  return (place >= elements.size() && standFrom(place - elements.size())) ||
         (place + elements.size() <= members.size() && standFrom(place));
}

std::string add(Session& session, const Arguments& arguments)
{
  auto& document = *session.document;
  const auto& group = groupNamed(document, arguments.at(0));
  const auto name = mentioned(group.getName());
  const auto elements = elementsNamed(document, arguments.from(1));
  const int index = insertIndex(document, group, arguments);
  if (elements.empty())
    return fmt::format("Nothing to add; {} stays as it is.", name);
  if (areInPlace(document, group, elements, index))
    return "Nothing to add; this is the order already.";

  const auto movement = movementInWords(document, elements, &group);
  auto command =
      std::make_shared<AddToTKGroupCmd<GUIdentifier>>(session.document, elements, group.getId());
  command->setInsertIndex(index);
  session.history.execute(command);
  return fmt::format("Added {} to {}{}.", counted(elements.size(), "element"), name, movement);
}

}

Verb addVerb()
{
  return {.name = "add",
          .usage = "add GROUP [ELEMENT…] [--at N | --before ELEMENT | --end]",
          .summary = "put elements into a group, or elsewhere in it",
          .details = "They go to the end of the group, in the order given, or in front of its "
                     "N-th member or of the\nmember named. N counts from 1; one more than there "
                     "are members means the end. Elements leave\nthe group that held them.",
          .example = "add Europe Berlin \"Isle of Man\" --at 1",
          .parameters = {{"GROUP", ArgumentKind::Group},
                         {"ELEMENT", ArgumentKind::Element, Occurrence::AnyNumber}},
          .options = {{"--at", ArgumentKind::Number, "N"},
                      {"--before", ArgumentKind::Element, "ELEMENT"},
                      {"--end", std::nullopt}},
          .run = add};
}

}
