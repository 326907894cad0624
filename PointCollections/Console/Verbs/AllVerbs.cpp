// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AllVerbs.h"

#include "PointCollections/Console/Verbs/EachVerb.h"

namespace Tarvik::PointCollections {

const std::vector<Verb>& allVerbs()
{
  static const std::vector<Verb> verbs = {
      showVerb(),         //
      createVerb(),       //
      addVerb(),          //
      moveVerb(),         //
      moveGroupVerb(),    //
      removeVerb(),       //
      renameVerb(),       //
      deleteVerb(),       //
      sortVerb(),         //
      undoVerb(),         //
      redoVerb(),         //
      historyVerb(),      //
      saveVerb(),         //
      openVerb(),         //
      helpVerb(allVerbs), //
      quitVerb(),         //
  };
  return verbs;
}

}
