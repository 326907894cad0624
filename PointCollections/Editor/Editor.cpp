// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/Editor.h"

#include "PointCollections/Editor/Saving.h"
#include "PointCollections/Input/PointFile.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
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

/// Reads and checks a document, and tells if the memory is too small for it.
template <class Action>
OpenedDocument openInMemory(const std::string& name, Action action)
{
  try {
    return action();
  } catch (const std::bad_alloc&) {
    throw UserError(
        fmt::format("{}: {}", name, translated("there is not enough memory for this file")));
  }
}

std::string nameInMessages(const std::filesystem::path& file)
{
  return printable(Utf8::fromPath(file));
}

OpenedDocument documentOf(PointFileContent content, std::string title)
{
  auto document = PointDocument::create(std::move(content.collections));
  document->setGroups(content.groups);
  return {.document = std::move(document),
          .title = std::move(title),
          .warnings = std::move(content.warnings)};
}

/// A document of a file of points that is read now.
/// @param parse  makes its content of the text
template <class Parse>
OpenedDocument readPoints(Files& files, const std::filesystem::path& file, Parse parse)
{
  const bool isReadOnce = files.isReadOnce(file);
  const auto text = files.readText(file);
  auto opened = documentOf(parse(text), Utf8::fromPath(isReadOnce ? file : file.filename()));
  if (isReadOnce)
    return opened;
  opened.fileSize = text.size();
  opened.fileHash = hashOf(std::as_bytes(std::span(text)));
  opened.file = file;
  return opened;
}

OpenedDocument readProject(Files& files, const std::filesystem::path& file, const std::string& name)
{
  const auto start = files.readStart(file, projectStartSize);
  checkProjectStart(start.bytes, start.size, name);
  const auto bytes = files.readBytes(file);
  return {loadProject(bytes, name),
          Utf8::fromPath(file.filename()),
          file,
          bytes.size(),
          hashOf(bytes),
          file};
}

}

OpenedDocument openDocument(Files& files, const std::filesystem::path& file)
{
  const auto name = nameInMessages(file);
  return openInMemory(name, [&] {
    if (isProjectName(file))
      return readProject(files, file, name);
    return readPoints(files, file, [&](const auto& text) { return parsePointFile(text, name); });
  });
}

OpenedDocument openPoints(Files& files,
                          const std::filesystem::path& file,
                          const TableHeader& header,
                          const PointColumns& columns)
{
  const auto name = nameInMessages(file);
  return openInMemory(name, [&] {
    return readPoints(
        files, file, [&](const auto& text) { return parsePointFile(text, name, header, columns); });
  });
}

OpenedDocument openPoints(std::string_view text, const std::string& title)
{
  return openInMemory(title, [&] { return documentOf(parsePointFile(text, title), title); });
}

bool isUnchanged(Files& files, const OpenedDocument& opened)
{
  // the size first: whatever is there now may be huge
  return files.readStart(opened.file, 0).size == opened.fileSize &&
         hashOf(files.readBytes(opened.file)) == opened.fileHash;
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
    throw UserError(translated("there is not enough memory to save the document after a change; "
                               "close other programs"));
  const std::size_t stepsSoFar = stepsInEffect();
  const bool hasChanged =
      m_history.execute(std::make_shared<GroupEdit>(document(), std::move(request), m_reserve));
  if (hasChanged) {
    m_forgottenSteps = stepsSoFar + 1 - m_history.position();
    ++m_changes;
  }
  holdReserve();
  return hasChanged;
}

void Editor::setHistoryBudget(std::size_t bytes)
{
  const std::size_t stepsSoFar = stepsInEffect();
  m_history.setBudget(bytes);
  m_forgottenSteps = stepsSoFar - m_history.position();
}

void Editor::replaceDocument(OpenedDocument opened)
{
  m_history.reset(); // first: a listener may still look at the old document
  m_opened = std::move(opened);
  m_forgottenSteps = 0;
  m_forgottenInNeed = 0;
  ++m_changes;
  m_sizeOfElements = savedSizeOfElements(*document());
  holdReserve();
}

void Editor::replaceWithUnsaved(OpenedDocument opened)
{
  replaceDocument(std::move(opened));
  m_history.forgetCleanMark();
}

Editor::OverwriteRisk Editor::overwriteRisk(const std::filesystem::path& file)
{
  auto risk = OverwriteRisk::None;
  withAllMemory([&] { risk = Saving::overwriteRisk(*m_files, m_opened, file); });
  return risk;
}

Editor::SaveResult Editor::save(const std::filesystem::path& file)
{
  const auto lock = lockForSaving(file);
  return saveLocked(file);
}

Editor::SaveResult Editor::saveIfSafe(const std::filesystem::path& file)
{
  const auto lock = lockForSaving(file);
  const auto risk = overwriteRisk(file);
  return risk == OverwriteRisk::None ? saveLocked(file) : SaveResult{risk};
}

std::unique_ptr<FileLock> Editor::lockForSaving(const std::filesystem::path& file)
{
  std::unique_ptr<FileLock> lock;
  withAllMemory([&] { lock = m_files->lockForSaving(file); });
  return lock;
}

Editor::SaveResult Editor::saveLocked(const std::filesystem::path& file)
{
  SaveResult result;
  withAllMemory([&] { result.warning = saveOnce(file); });
  ++m_changes;
  m_history.markClean();
  return result;
}

/// @return the warning
std::string Editor::saveOnce(const std::filesystem::path& file)
{
  const auto bytes = saveProject(*document());
  auto saved = openedIn(file, bytes);
  auto warning = m_files->write(file, bytes).warning;
  m_opened = std::move(saved); // cannot fail
  return warning;
}

/// What is known about a file with these bytes, once the document is saved in it.
OpenedDocument Editor::openedIn(const std::filesystem::path& file,
                                std::span<const std::byte> bytes) const
{
  return {document(), Utf8::fromPath(file.filename()), file, bytes.size(), hashOf(bytes), file};
}

std::unique_ptr<Saving> Editor::beginSave(const std::filesystem::path& file, bool mayOverwrite)
{
  std::unique_ptr<Saving> saving;
  withAllMemory([&] {
    auto bytes = saveProject(*document());
    auto saved = openedIn(file, bytes);
    saving = std::make_unique<Saving>(m_files, m_opened, std::move(saved), std::move(bytes),
                                      mayOverwrite, state());
  });
  return saving;
}

void Editor::finishSave(const Saving& saving)
{
  const bool isStillSo = saving.stateOfDocument() == state();
  m_opened = saving.saved();
  ++m_changes;
  if (isStillSo)
    m_history.markClean();
  else
    m_history.forgetCleanMark();
}

/// Does what saving needs: if there is not enough memory, with the reserve, and then with the
/// memory of forgotten steps.
template <class Action>
void Editor::withAllMemory(Action action)
{
  if (isDoneInMemory(action))
    return;
  m_reserve->release();
  while (!isDoneInMemory(action)) {
    if (!forgetSteps())
      throw UserError(translated("there is not enough memory to save the document; close other "
                                 "programs"));
  }
  holdReserve();
}

/// Forgets half of the steps.
/// @return false if there is none to forget
bool Editor::forgetSteps()
{
  const std::size_t stepsSoFar = stepsInEffect();
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
  while (!m_reserve->hold(copiesWhenSaving * size)) {
    if (!forgetSteps())
      return false;
  }
  return true;
}

std::string contentOf(PointDocument& document)
{
  const auto elements = countOfElements(document.order().size());
  const auto points = countOfPoints(countPoints(document));
  const auto groups = document.getGroups().size();
  // For translators: the content of a document: "2 elements with 4 points in 1 group"
  return groups > 0 ? translated("{} with {} in {}", elements, points, countOfGroups(groups))
                    // For translators: the content of a document: "2 elements with 4 points"
                    : translated("{} with {}", elements, points);
}

std::string summaryOf(const Editor& editor)
{
  return translated("{}: {}", displayName(editor.title()), contentOf(*editor.document()));
}

}
