// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AllVerbs.h"

#include "PointCollections/Console/Verbs/EachVerb.h"

namespace Tarvik::PointCollections {

const std::vector<Verb>& allVerbs()
{
  static const std::vector<Verb> verbs = {
      showVerb(),         //
      findVerb(),         //
      whereVerb(),        //
      selectVerb(),       //
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
      exportVerb(),       //
      helpVerb(allVerbs), //
      quitVerb(),         //
  };
  return verbs;
}

}
