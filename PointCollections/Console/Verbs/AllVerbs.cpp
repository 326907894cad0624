// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AllVerbs.h"

#include "PointCollections/Console/Text/NearestName.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {

const std::vector<Verb>& allVerbs()
{
  static const std::vector<Verb> verbs = {
      showVerb(),    //
      createVerb(),  //
      addVerb(),     //
      moveVerb(),    //
      removeVerb(),  //
      renameVerb(),  //
      deleteVerb(),  //
      sortVerb(),    //
      undoVerb(),    //
      redoVerb(),    //
      historyVerb(), //
      saveVerb(),    //
      openVerb(),    //
      helpVerb(),    //
      quitVerb(),    //
  };
  return verbs;
}

std::vector<std::string> verbNames()
{
  std::vector<std::string> names;
  for (const Verb& verb : allVerbs())
    names.push_back(verb.name);
  return names;
}

const Verb& verbNamed(const std::string& name)
{
  const auto& verbs = allVerbs();
  const auto found = std::find_if(verbs.begin(), verbs.end(),
                                  [&name](const Verb& verb) { return verb.name == name; });
  if (found == verbs.end())
    throw UserError(fmt::format("{} is not a verb{}", mentioned(name),
                                suggestion(name, verbNames(), "help lists the verbs")));
  return *found;
}

}
