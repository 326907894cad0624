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
#include <numeric>
#include <span>
#include <string_view>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

std::size_t hashOf(std::span<const std::byte> bytes)
{
  return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::size_t countPoints(const PointDocument& document)
{
  const auto& all = document.collections();
  return std::accumulate(all.begin(), all.end(), std::size_t(0),
                         [](auto sum, const auto& each) { return sum + each.points.size(); });
}

/// How many times its size a project takes in memory while it is saved: the archive grows by
/// doubling, and its bytes are copied.
constexpr std::size_t copiesWhenSaving = 4;

/// @return false if there is not enough memory
template <class Action>
bool isDoneInMemory(Action& action)
{
  try {
    action();
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

std::shared_ptr<PointDocument> documentOf(PointFileContent content)
{
  auto document = PointDocument::create(std::move(content.collections));
  document->setGroups(content.groups);
  return document;
}

}

OpenedDocument openDocument(Files& files, const std::filesystem::path& file)
{
  const auto name = printable(Utf8::fromPath(file));
  try {
    auto title = Utf8::fromPath(file.filename());
    if (!isProjectName(file))
      return {documentOf(parsePointFile(files.readText(file), name)), std::move(title)};
    const auto start = files.readStart(file, projectStartSize);
    checkProjectStart(start.bytes, start.size, name);
    const auto bytes = files.readBytes(file);
    return {loadProject(bytes, name), std::move(title), file, bytes.size(), hashOf(bytes)};
  } catch (const std::bad_alloc&) {
    throw UserError(fmt::format("{}: there is not enough memory for this file", name));
  }
}

Editor::Editor(OpenedDocument opened, std::shared_ptr<Files> files)
    : m_opened(std::move(opened)),
      m_files(std::move(files)),
      m_sizeOfElements(savedSizeOfElements(*m_opened.document))
{
  m_history.setBudget(historyBudget);
  m_history.setDropsCommandsWithoutChange(true);
  m_history.setOutOfMemoryHandler([this](auto&) { return forgetSteps(); });
  holdReserve();
}

bool Editor::execute(EditRequest request)
{
  if (!holdReserve())
    throw UserError("there is not enough memory to save the document after a change; close other "
                    "programs");
  const std::size_t stepsSoFar = m_forgottenSteps + m_history.position();
  const bool hasChanged =
      m_history.execute(std::make_shared<GroupEdit>(document(), std::move(request)));
  if (hasChanged)
    m_forgottenSteps = stepsSoFar + 1 - m_history.position();
  holdReserve();
  return hasChanged;
}

void Editor::setHistoryBudget(std::size_t bytes)
{
  const std::size_t stepsSoFar = m_forgottenSteps + m_history.position();
  m_history.setBudget(bytes);
  m_forgottenSteps = stepsSoFar - m_history.position();
}

void Editor::replaceDocument(OpenedDocument opened)
{
  m_history.reset(); // first: a listener may still look at the old document
  m_opened = std::move(opened);
  m_forgottenSteps = 0;
  m_forgottenInNeed = 0;
  m_sizeOfElements = savedSizeOfElements(*document());
  holdReserve();
}

Editor::OverwriteRisk Editor::overwriteRisk(const std::filesystem::path& file)
{
  const bool isOwn = file == projectFile() || m_files->areSame(file, projectFile());
  if (isOwn) {
    bool isChanged = false;
    withAllMemory([&] { isChanged = hasFileChanged(); });
    return isChanged ? OverwriteRisk::OtherChanges : OverwriteRisk::None;
  }
  return m_files->exists(file) ? OverwriteRisk::OtherFile : OverwriteRisk::None;
}

void Editor::save(const std::filesystem::path& file)
{
  withAllMemory([&] { saveOnce(file); });
  m_history.markClean();
}

void Editor::saveOnce(const std::filesystem::path& file)
{
  const auto bytes = saveProject(*document());
  OpenedDocument saved = {document(), Utf8::fromPath(file.filename()), file, bytes.size(),
                          hashOf(bytes)};
  m_files->write(file, bytes);
  m_opened = std::move(saved); // cannot fail
}

bool Editor::hasFileChanged() const
{
  // the size first: whatever is there now may be huge
  return m_files->exists(projectFile()) &&
         (m_files->readStart(projectFile(), 0).size != m_opened.projectSize ||
          hashOf(m_files->readBytes(projectFile())) != m_opened.projectHash);
}

/// Does what saving needs: if there is not enough memory, with the reserve, and then with the
/// memory of forgotten steps.
template <class Action>
void Editor::withAllMemory(Action action)
{
  if (isDoneInMemory(action))
    return;
  m_reserve.release();
  while (!isDoneInMemory(action)) {
    if (!forgetSteps())
      throw UserError("there is not enough memory to save the document; close other programs");
  }
  holdReserve();
}

/// Forgets half of the steps.
/// @return false if there is none to forget
bool Editor::forgetSteps()
{
  const std::size_t stepsSoFar = m_forgottenSteps + m_history.position();
  const std::size_t released = m_history.releaseOldest(m_history.entries().size() / 2 + 1);
  m_forgottenSteps = stepsSoFar - m_history.position();
  m_forgottenInNeed += released;
  return released > 0;
}

/// Holds what saving takes. Where there is not enough memory for that, there is hardly enough for
/// another step: the history forgets some.
/// @return whether it is held
bool Editor::holdReserve()
{
  const auto size = m_sizeOfElements + savedSizeOfGroups(*document());
  while (!m_reserve.hold(copiesWhenSaving * size)) {
    if (!forgetSteps())
      return false;
  }
  return true;
}

std::string summaryOf(const Editor& editor)
{
  auto& document = *editor.document();
  const auto groups = document.getGroups().size();
  return fmt::format("{}: {} with {}{}", displayName(editor.title()),
                     pluralize(document.order().size(), "element"),
                     pluralize(countPoints(document), "point"),
                     groups > 0 ? " in " + pluralize(groups, "group") : std::string());
}

}
