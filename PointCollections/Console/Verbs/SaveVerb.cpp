// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

namespace Tarvik::PointCollections {
namespace {

void refuseOverwriting(Editor::OverwriteRisk risk, const std::filesystem::path& file)
{
  const auto name = displayName(Utf8::fromPath(file));
  switch (risk) {
  case Editor::OverwriteRisk::None:
    return;
  case Editor::OverwriteRisk::OtherFile:
    throw UserError(translated("{} exists already; add --overwrite to replace it", name));
  case Editor::OverwriteRisk::OtherChanges:
    throw UserError(translated("another program has changed {}; save under another name, or add "
                               "--overwrite to replace it",
                               name));
  }
}

std::filesystem::path fileToSaveIn(const Editor& editor, const Arguments& arguments)
{
  if (arguments.count() == 0) {
    if (editor.projectFile().empty())
      throw UserError(translated("{} is not saved in a project file yet; usage: save FILE",
                                 displayName(editor.title())));
    return editor.projectFile();
  }
  auto file = Utf8::toPath(arguments.at(0).text);
  if (!isProjectName(file)) {
    // For translators: {1} is ".tkpc".
    throw UserError(translated("{} is not the name of a project file; expected one that ends in {}",
                               displayName(arguments.at(0).text), projectExtension));
  }
  return file;
}

std::string save(Session& session, const Arguments& arguments)
{
  auto& editor = session.editor;
  const auto file = fileToSaveIn(editor, arguments);
  const auto [risk, warning] =
      arguments.has("--overwrite") ? editor.save(file) : editor.saveIfSafe(file);
  refuseOverwriting(risk, file);
  // For translators: {} is "continents.tkpc: 9 elements in 2 groups".
  auto answer = translated("Saved {}.", summaryOf(editor));
  return warning.empty() ? answer : answer + '\n' + warning;
}

}

Verb saveVerb()
{
  return {.name = "save",
          .usage = "save [FILE] [--overwrite]",
          .summary = translatable("write elements, groups and order to a project file"),
          .details =
              [] {
                return translated(
                    "The name of FILE ends in .tkpc. Later, save without FILE writes to the same "
                    "file. Another file that exists, or a file that another program has changed, "
                    "is only replaced with --overwrite. If saving fails, or another program "
                    "saves in the file at the same moment, the old file stays as it was. The "
                    "history is not saved.");
              },
          .example = "save continents.tkpc",
          .parameters = {{"FILE", ArgumentKind::ProjectFile, Occurrence::Optionally}},
          .options = {{"--overwrite", std::nullopt}},
          .run = save};
}

}
