// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Verb.h"

#include "PointCollections/Text/NearestName.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>

namespace Tarvik::PointCollections {

std::vector<std::string> namesOf(const std::vector<Verb>& verbs)
{
  std::vector<std::string> names;
  names.reserve(verbs.size());
  for (const Verb& verb : verbs)
    names.push_back(verb.name);
  return names;
}

const Verb& verbNamed(const std::vector<Verb>& verbs, const std::string& name)
{
  const auto found = std::find_if(verbs.begin(), verbs.end(), [&name](const Verb& verb) {
    const auto& others = verb.otherNames;
    return verb.name == name || std::find(others.begin(), others.end(), name) != others.end();
  });
  if (found == verbs.end()) {
    // For translators: in place of "did you mean {}?".
    const auto otherwise = translated("help lists the commands");
    // For translators: {1} is "; did you mean history?" or "; help lists the commands".
    throw UserError(translated("{} is not a command{}", displayName(name),
                               suggestion(name, namesOf(verbs), otherwise)));
  }
  return *found;
}

}
