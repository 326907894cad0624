// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Input/PointFile.h"
#include "PointCollections/Input/PointFileWriter.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <span>

namespace Tarvik::PointCollections {
namespace {

std::filesystem::path fileToWrite(const Word& word)
{
  auto file = Utf8::toPath(word.text);
  if (!isPointsName(file))
    throw UserError(
        translated("{} is not the name of a file of points; expected one that ends in .csv",
                   displayName(word.text)));
  return file;
}

std::string exportPoints(Session& session, const Arguments& arguments)
{
  auto& files = session.editor.files();
  auto& document = *session.editor.document();
  const auto file = fileToWrite(arguments.at(0));
  const auto name = displayName(Utf8::fromPath(file));
  if (!arguments.has("--overwrite") && files.exists(file))
    throw UserError(translated("{} exists already; add --overwrite to replace it", name));
  const auto text = pointFileOf(document);
  const auto lock = files.lockForSaving(file);
  const auto warning = files.write(file, std::as_bytes(std::span(text))).warning;
  // For translators: Exported 9 elements in 2 groups to points.csv.
  auto answer = translated("Exported {} in {} to {}.", countOfElements(document.order().size()),
                           countOfGroups(document.getGroups().size()), name);
  return warning.empty() ? answer : answer + '\n' + warning;
}

}

Verb exportVerb()
{
  return {.name = "export",
          .usage = "export FILE [--overwrite]",
          .summary = translatable("write points and groups to a text file for other programs"),
          .details =
              [] {
                return translated(
                    "The name of FILE ends in .csv. It has the columns collection, x, y, z, group "
                    "and place; open reads it back with the groups. The document still has to be "
                    "saved. A file that exists is only replaced with --overwrite.");
              },
          .example = "export continents.csv",
          .parameters = {{"FILE", ArgumentKind::PointFile}},
          .options = {{"--overwrite", std::nullopt}},
          .run = exportPoints};
}

}
