// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Session/DocumentFile.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

/// What the user has not seen may be the only copy of something.
void checkOverwriting(Session& session, const std::filesystem::path& file)
{
  auto& files = *session.files;
  const bool isOwn = file == session.projectFile || files.areSame(file, session.projectFile);
  const auto name = mentioned(Utf8::fromPath(file));
  if (!isOwn && files.exists(file))
    throw UserError(fmt::format("{} exists already; add --overwrite to replace it", name));
  if (isOwn && hasChangedOnDisk(session))
    throw UserError(fmt::format("another program has changed {}; save under another name, or add "
                                "--overwrite to replace it",
                                name));
}

std::filesystem::path fileAskedFor(const Session& session, const Arguments& arguments)
{
  if (arguments.count() == 0) {
    if (session.projectFile.empty())
      throw UserError(fmt::format("{} is not saved in a project file yet; usage: save FILE",
                                  mentioned(session.title)));
    return session.projectFile;
  }
  auto file = Utf8::toPath(arguments.at(0).text);
  if (!isProjectName(file))
    throw UserError(fmt::format("{} is no name of a project file; expected one that ends in {}",
                                mentioned(arguments.at(0).text), projectExtension));
  return file;
}

std::string save(Session& session, const Arguments& arguments)
{
  const auto file = fileAskedFor(session, arguments);
  if (!arguments.has("--overwrite"))
    checkOverwriting(session, file);
  saveDocument(session, file);
  return fmt::format("Saved {}.", documentInWords(session));
}

}

Verb saveVerb()
{
  return {.name = "save",
          .usage = "save [FILE] [--overwrite]",
          .summary = "write elements, groups and order to a project file",
          .details =
              "FILE ends in .tkpc. It is the document's own file from then on, to which save "
              "without FILE writes.\nAnother file that exists, or that another program has "
              "changed, is replaced with --overwrite only.\nWhatever goes wrong, the old "
              "file or the new one is there, whole. The history is not saved.",
          .example = "save continents.tkpc",
          .parameters = {{"FILE", ArgumentKind::File, Occurrence::Optionally}},
          .options = {{"--overwrite", std::nullopt}},
          .run = save};
}

}
