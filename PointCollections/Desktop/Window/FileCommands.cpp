// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/FileCommands.h"

#include "PointCollections/Desktop/Window/FileNames.h"
#include "PointCollections/Desktop/Window/Progress.h"
#include "PointCollections/Input/PointFileWriter.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Utf8.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>

#include <exception>
#include <new>
#include <span>
#include <string>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

std::filesystem::path withExtension(std::filesystem::path file, const char* extension)
{
  return file.empty() ? file : file.replace_extension(extension);
}

/// @param content  a contiguous list of characters
template <class Content>
std::vector<std::byte> bytesOf(const Content& content)
{
  const auto bytes = std::as_bytes(std::span(content.data(), std::size_t(content.size())));
  return {bytes.begin(), bytes.end()};
}

}

FileCommands::FileCommands(Workspace& workspace, Questions& questions, QWidget& window)
    : QObject(&window), m_workspace(workspace), m_questions(questions), m_window(window)
{
  connect(&m_recentFiles, &RecentFiles::chosen, this,
          [this](const QString& name) { openRecent(pathFrom(name)); });
}

/// Tells about the exception that is being handled.
/// @param what  what has failed
void FileCommands::tellException(const QString& what)
{
  try {
    throw;
  } catch (const std::bad_alloc&) {
    m_questions.tellFailure(what, tr("There is not enough memory."));
  } catch (const std::exception& failure) {
    m_questions.tellFailure(what, QString::fromUtf8(failure.what()));
  }
}

/// Runs an action and tells what goes wrong.
template <class Task>
bool FileCommands::attempt(const QString& whatFails, Task task)
{
  try {
    return task();
  } catch (const std::exception&) {
    tellException(whatFails);
    return false;
  }
}

void FileCommands::open()
{
  if (const auto file = m_questions.fileToOpen())
    openFile(*file);
}

void FileCommands::openRecent(const std::filesystem::path& file)
{
  const auto what = tr("%1 cannot be opened.").arg(nameOf(file.filename()));
  bool isThere = false;
  const auto isKnown = attempt(what, [&] {
    isThere = m_workspace.files()->exists(file);
    return true;
  });
  if (!isKnown)
    return; // for instance, the disk does not answer
  if (isThere) {
    openFile(file);
    return;
  }
  m_recentFiles.remove(file);
  m_questions.tellFailure(what, tr("%1 is not there any more. The list of recent files no longer "
                                   "has it.")
                                    .arg(nameOf(file)));
}

bool FileCommands::openFile(const std::filesystem::path& file)
{
  if (!mayDiscard())
    return false;
  const auto isOpen = attempt(tr("%1 cannot be opened.").arg(nameOf(file.filename())), [&] {
    auto opened = read(file);
    if (opened)
      show(std::move(*opened));
    return opened.has_value();
  });
  if (isOpen) {
    m_recentFiles.add(file);
    offerUnsavedWork(file);
  }
  return isOpen;
}

/// Asks for the columns of a table that does not name them as expected.
/// @return nothing if the user has cancelled it
std::optional<OpenedDocument> FileCommands::read(const std::filesystem::path& file)
{
  const auto files = m_workspace.files();
  try {
    return readWithProgress(file, [=] { return openDocument(*files, file); });
  } catch (const UnknownColumns& unknown) {
    if (files->isReadOnce(file))
      throw; // it cannot be read another time
    const auto choice = m_questions.chooseColumns(unknownTable(file, unknown));
    if (!choice)
      return std::nullopt;
    return readWithProgress(
        file, [=] { return openPoints(*files, file, choice->header, choice->columns); });
  }
}

UnknownTable FileCommands::unknownTable(const std::filesystem::path& file,
                                        const UnknownColumns& unknown) const
{
  const auto readAgain = [text = m_workspace.files()->readText(file),
                          name = printable(Utf8::fromPath(file))](char separator) {
    return readHeader(text, name, separator);
  };
  return {QString::fromUtf8(unknown.what()), unknown.header(), readAgain};
}

std::optional<OpenedDocument>
FileCommands::readWithProgress(const std::filesystem::path& file,
                               const std::function<OpenedDocument()>& open)
{
  // The work may outlive this object if the user cancels.
  const auto opened = std::make_shared<OpenedDocument>();
  const auto work = [opened, open](Cancellation&) { *opened = open(); };
  if (!runWithProgress(&m_window, tr("Opening %1 …").arg(nameOf(file.filename())), work))
    return std::nullopt;
  return std::move(*opened);
}

void FileCommands::show(OpenedDocument opened)
{
  const auto warnings = std::exchange(opened.warnings, {});
  m_workspace.replaceDocument(std::move(opened));
  for (const auto& warning : warnings)
    m_questions.tellWarning(QString::fromStdString(warning));
}

void FileCommands::offerUnsavedWork(const std::filesystem::path& file)
{
  attempt(tr("Unsaved work of an earlier run cannot be recovered."), [&] {
    auto found = findUnsavedWork(m_workspace.editor().files(), file);
    for (const auto& mistake : found.mistakes)
      m_questions.tellWarning(QString::fromStdString(mistake));
    for (auto& work : found.works) {
      switch (m_questions.aboutFoundWork(m_workspace.title(),
                                         QString::fromStdString(summaryOf(work)))) {
      case Questions::FoundWork::Recover:
        m_workspace.recover(std::move(work));
        return true;
      case Questions::FoundWork::Discard:
        work.remove();
        break;
      default:
        break;
      }
    }
    return true;
  });
}

bool FileCommands::save()
{
  const auto& file = m_workspace.editor().projectFile();
  return file.empty() ? saveAs() : saveIn(file, false);
}

bool FileCommands::saveAs()
{
  const auto& editor = m_workspace.editor();
  auto suggestion = editor.projectFile();
  if (suggestion.empty() && !editor.title().empty())
    suggestion = withExtension(pathFrom(m_workspace.title()), ".tkpc");
  const auto file = m_questions.fileToWrite(Questions::FileKind::Project, suggestion);
  return file && saveIn(*file, *file != editor.projectFile());
}

/// @param mayOverwrite  whether the user has agreed to overwrite the file
bool FileCommands::saveIn(const std::filesystem::path& file, bool mayOverwrite)
{
  return attempt(tr("%1 cannot be saved.").arg(nameOf(file.filename())), [&] {
    auto result = saveWithProgress(file, mayOverwrite);
    if (result && result->risk != Editor::OverwriteRisk::None) {
      if (!m_questions.mayOverwrite(file, result->risk))
        return false;
      result = saveWithProgress(file, true);
    }
    if (!result)
      return false;
    if (!result->warning.empty())
      m_questions.tellWarning(QString::fromStdString(result->warning));
    m_recentFiles.add(file);
    return true;
  });
}

/// @return nothing if the user has cancelled it
std::optional<Editor::SaveResult> FileCommands::saveWithProgress(const std::filesystem::path& file,
                                                                 bool mayOverwrite)
{
  try {
    const auto written = std::make_shared<std::optional<Editor::SaveResult>>();
    const std::shared_ptr<Saving> saving = m_workspace.beginSave(file, mayOverwrite);
    const auto write = [=](Cancellation& cancellation) { *written = saving->write(cancellation); };
    if (!runWithProgress(&m_window, tr("Saving %1 …").arg(nameOf(file.filename())), write) ||
        !*written)
      return std::nullopt;
    if ((*written)->risk == Editor::OverwriteRisk::None)
      m_workspace.finishSave(*saving);
    return std::move(**written);
  } catch (const std::bad_alloc&) {
    return m_workspace.saveNow(file, mayOverwrite); // the editor has memory in reserve for this
  }
}

bool FileCommands::mayDiscard()
{
  if (!m_workspace.editor().hasUnsavedChanges())
    return true;
  switch (m_questions.aboutUnsavedChanges(m_workspace.title())) {
  case Questions::UnsavedChanges::Save:
    return save();
  case Questions::UnsavedChanges::Discard:
    m_workspace.forgetUnsavedWork();
    return true;
  default:
    return false;
  }
}

void FileCommands::exportGroups()
{
  const auto suggestion = withExtension(m_workspace.editor().projectFile(), ".csv");
  const auto file = m_questions.fileToWrite(Questions::FileKind::Table, suggestion);
  if (!file)
    return;
  attempt(tr("The groups cannot be exported."), [&] {
    const auto table = pointFileOf(*m_workspace.editor().document());
    return write(*file, bytesOf(table));
  });
}

void FileCommands::exportPicture(const std::function<QImage()>& makePicture)
{
  const auto suggestion = withExtension(m_workspace.editor().projectFile(), ".png");
  const auto file = m_questions.fileToWrite(Questions::FileKind::Picture, suggestion);
  if (!file)
    return;
  attempt(tr("The picture cannot be exported."), [&] {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!makePicture().save(&buffer, "PNG"))
      throw std::bad_alloc();
    return write(*file, bytesOf(bytes));
  });
}

/// @return false if the user has cancelled it
bool FileCommands::write(const std::filesystem::path& file, std::vector<std::byte> bytes)
{
  const auto result = std::make_shared<std::optional<WriteResult>>();
  const auto work = [result, file, bytes = std::move(bytes),
                     files = m_workspace.files()](Cancellation& cancellation) {
    const auto lock = files->lockForSaving(file);
    *result = files->writeUnlessCancelled(file, bytes, cancellation);
  };
  if (!runWithProgress(&m_window, tr("Writing %1 …").arg(nameOf(file.filename())), work) ||
      !*result)
    return false;
  if (!(*result)->warning.empty())
    m_questions.tellWarning(QString::fromStdString((*result)->warning));
  return true;
}

}
