// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Whereabouts.h"
#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {
namespace {

std::string where(Session& session, const Arguments& arguments)
{
  const auto elements = session.selection().elements(arguments.from(0));
  if (!arguments.has("--json"))
    return describeElements(session, elements);
  JsonWriter json;
  writeElements(json, session, elements);
  return json.text();
}

}

Verb whereVerb()
{
  return {.name = "where",
          .usage = "where ELEMENT… [--json]",
          .summary =
              translatable("tell which groups hold elements, at which places, and their points"),
          .details =
              [] {
                return translated(
                    "Of several elements, only the first three points of each are shown. --json "
                    "writes everything for other programs. help select explains ELEMENT.");
              },
          .example = "where Berlin",
          .parameters = {{"ELEMENT", ArgumentKind::Element, Occurrence::OnceOrMore}},
          .options = {{"--json", std::nullopt}},
          .run = where,
          .answer = AnswerKind::Table};
}

}
