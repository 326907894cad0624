// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/PlaceOption.h"

#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

namespace Tarvik::PointCollections {

std::string placeOptionIn(const Arguments& arguments)
{
  const bool hasBefore = arguments.has("--before");
  const bool hasAfter = arguments.has("--after");
  if (hasBefore && hasAfter)
    throw UserError(translated("more than one place is given; choose one of --before and --after"));
  if (!hasBefore && !hasAfter)
    throw UserError(translated("the place is missing; add --before TARGET or --after TARGET"));
  return hasBefore ? "--before" : "--after";
}

}
