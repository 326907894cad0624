// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/Editor.h"

#include "PointCollections/Input/PointFile.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <functional>
#include <new>
#include <span>
#include <string_view>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

std::size_t hashOf(std::span<const std::byte> bytes)
{
  return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}

OpenedDocument openDocument(Files& files, const std::filesystem::path& file)
{
  const auto name = printable(Utf8::fromPath(file));
  try {
    auto title = Utf8::fromPath(file.filename());
    if (!isProjectName(file))
      return {PointDocument::create(parsePoints(files.readText(file), name)), std::move(title)};
    const auto bytes = files.readBytes(file);
    return {loadProject(bytes, name), std::move(title), file, hashOf(bytes)};
  } catch (const std::bad_alloc&) {
    throw UserError(fmt::format("{}: there is not enough memory for this file", name));
  }
}

Editor::Editor(OpenedDocument opened, std::shared_ptr<Files> files)
    : m_opened(std::move(opened)), m_files(std::move(files))
{}

void Editor::replaceDocument(OpenedDocument opened)
{
  m_opened = std::move(opened);
  m_history.clear();
  m_history.markClean();
}

Editor::OverwriteRisk Editor::overwriteRisk(const std::filesystem::path& file) const
{
  const bool isOwn = file == projectFile() || m_files->areSame(file, projectFile());
  if (isOwn)
    return hasFileChanged() ? OverwriteRisk::OtherChanges : OverwriteRisk::None;
  return m_files->exists(file) ? OverwriteRisk::OtherFile : OverwriteRisk::None;
}

void Editor::save(const std::filesystem::path& file)
{
  const auto bytes = saveProject(*document());
  OpenedDocument saved = {document(), Utf8::fromPath(file.filename()), file, hashOf(bytes)};
  m_files->write(file, bytes);

  m_opened = std::move(saved); // from here on nothing can fail
  m_history.markClean();
}

bool Editor::hasFileChanged() const
{
  return m_files->exists(projectFile()) &&
         hashOf(m_files->readBytes(projectFile())) != m_opened.projectHash;
}

std::string summaryOf(const Editor& editor)
{
  auto& document = *editor.document();
  const auto groups = document.getGroups().size();
  return fmt::format("{}: {} with {}{}", displayName(editor.title()),
                     pluralize(document.order().size(), "element"),
                     pluralize(document.numberOfPoints(), "point"),
                     groups > 0 ? " in " + pluralize(groups, "group") : std::string());
}

}
