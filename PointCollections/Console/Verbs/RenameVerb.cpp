// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "PointCollections/Console/Verbs/AlikeGroups.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

/// The document accepts any name, but the user has to tell the groups apart.
void checkNewName(PointDocument& document, const std::string& name)
{
  if (name.empty())
    throw UserError(translated("the new name is empty; a group needs one"));
  const auto& groups = document.getGroups();
  if (std::any_of(groups.begin(), groups.end(),
                  [&](const auto& group) { return group.getName() == name; }))
    throw UserError(
        translated("another group has the name {}; choose one that is free", displayName(name)));
}

std::string renameGroup(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto& group = groupNamed(document, arguments.at(0));
  const auto oldName = group.getName();
  const std::string& newName = arguments.at(1).text;
  if (newName == oldName)
    return translated("Nothing to rename; {} has this name already.", displayName(oldName));
  checkNewName(document, newName);

  session.editor.execute(
      {.context = "RenameTKGroupCmd",
       .text = "Rename Group",
       .makeCommand =
           [&, id = group.getId()](auto provider) {
             return std::make_shared<RenameTKGroupCmd<GUIdentifier>>(provider, id, newName);
           },
       .subject = [&] { return subjectGoingInto(displayName(oldName), displayName(newName)); }});
  // For translators: {0} and {1} are names; {2} is empty or "; the group {} looks the same, but is
  // written differently".
  return translated("Renamed {} to {}{}.", displayName(oldName), displayName(newName),
                    remarkOnAlikeGroup(document, newName));
}

}

Verb renameVerb()
{
  return {.name = "rename",
          .usage = "rename GROUP NAME",
          .summary = translatable("give a group another name"),
          .details =
              [] {
                return translated(
                    "The group keeps its place and its members. NAME must not be empty, nor the "
                    "name of another group.");
              },
          .example = "rename Europe \"Old World\"",
          .parameters = {{"GROUP", ArgumentKind::Group}, {"NAME", ArgumentKind::Text}},
          .options = {},
          .run = renameGroup};
}

}
