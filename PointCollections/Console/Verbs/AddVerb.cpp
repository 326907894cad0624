// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>
#include <limits>

namespace Tarvik::PointCollections {
namespace {

constexpr int atTheEnd = -1;

int checkedIndex(std::size_t index)
{
  if (index > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    throw UserError(translated("this place is too far down in the group; use --end"));
  return static_cast<int>(index);
}

std::string countOfMembers(std::size_t number)
{
  // For translators: of a group.
  return translatedCount(number, "{} member", "{} members");
}

int indexOfPlace(const TKGroup<GUIdentifier>& group, const Word& word)
{
  const std::size_t members = group.getGroupMembers().size();
  const std::size_t place = positiveNumber(
      word, translatable("the place after --at is {}; expected a whole number from 1 up"));
  if (place > members + 1) {
    // For translators: {2} is "3 members".
    throw UserError(translated("--at {} is after the end; {} has {}, so N is from 1 to {}",
                               word.text, displayName(group.getName()), countOfMembers(members),
                               members + 1));
  }
  return checkedIndex(place - 1);
}

/// @param option  "--before" or "--after", for messages
int indexOfMember(Session& session,
                  const TKGroup<GUIdentifier>& group,
                  const Word& word,
                  const std::string& option)
{
  const auto& members = group.getGroupMembers();
  const auto element = session.selection().element(word);
  const auto found = std::find(members.begin(), members.end(), element);
  if (found == members.end()) {
    // For translators: Berlin is not in Europe; name one of its members after --before.
    throw UserError(translated("{} is not in {}; name one of its members after {}",
                               displayName(session.editor.document()->getElementName(element)),
                               displayName(group.getName()), option));
  }
  return checkedIndex(static_cast<std::size_t>(found - members.begin()));
}

int insertIndex(Session& session, const TKGroup<GUIdentifier>& group, const Arguments& arguments)
{
  if (arguments.has("--at") + arguments.has("--before") + arguments.has("--after") +
          arguments.has("--end") >
      1)
    throw UserError(translated("more than one place is given; choose one of --at, --before, "
                               "--after and --end"));
  if (arguments.has("--at"))
    return indexOfPlace(group, arguments.valueOf("--at"));
  for (const std::string option : {"--before", "--after"}) {
    if (arguments.has(option))
      return indexOfMember(session, group, arguments.valueOf(option), option) +
             (option == "--after" ? 1 : 0);
  }
  return atTheEnd;
}

std::string add(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto& group = groupNamed(document, arguments.at(0));
  const auto name = displayName(group.getName());
  const auto elements = session.selection().elements(arguments.from(1));
  const int index = insertIndex(session, group, arguments);
  if (elements.empty())
    return translated("Nothing to add; {} stays as it is.", name);

  const auto id = group.getId();
  const auto movement = describeMovement(document, elements, &group);
  auto subject = subjectGoingInto(subjectOf(document, elements), name);
  const bool hasChanged = session.editor.execute(
      {.context = "AddToTKGroupCmd",
       .text = "Add to Group",
       .makeCommand =
           [&](auto provider) {
             auto command = std::make_shared<AddToTKGroupCmd<GUIdentifier>>(provider, elements, id);
             command->setInsertIndex(index);
             return command;
           },
       .subject = [&] { return subject; }});
  if (!hasChanged)
    return translated("Nothing to add; this is the order already.");
  const auto otherPlaces = remarkOnOtherPlaces(document, elements, document.findGroup(id));
  // For translators: {0} is "2 elements"; {2} is empty or " (1 from Asia, 1 moved within it)"; {3}
  // is empty or "; Berlin is still in Asia".
  return translated("Added {} to {}{}{}.", countOfElements(elements.size()), name, movement,
                    otherPlaces);
}

}

Verb addVerb()
{
  return {.name = "add",
          .usage = "add GROUP [ELEMENT…] [--at N | --before MEMBER | --after MEMBER | --end]",
          .summary = translatable("put elements into a group, or move them within it"),
          .details =
              [] {
                return translated(
                    "They go to the end of the group, in the order given. --at N puts them before "
                    "the N-th member, --before and --after put them beside a member. N counts "
                    "from 1; the number of members plus 1 means the end. Elements leave the "
                    "group that held them; one that is in several groups leaves only the first. "
                    "help select explains ELEMENT.");
              },
          .example = "add Europe Berlin \"Isle of Man\" --at 1",
          .parameters = {{"GROUP", ArgumentKind::Group},
                         {"ELEMENT", ArgumentKind::Element, Occurrence::AnyNumber}},
          .options = {{"--at", ArgumentKind::Number, "N", "place"},
                      {"--before", ArgumentKind::MemberOfGroup, "MEMBER", "place"},
                      {"--after", ArgumentKind::MemberOfGroup, "MEMBER", "place"},
                      {"--end", std::nullopt, "", "place"}},
          .run = add};
}

}
