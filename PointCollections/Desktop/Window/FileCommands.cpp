// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/FileCommands.h"

#include "PointCollections/Desktop/Window/FileNames.h"
#include "PointCollections/Desktop/Window/Progress.h"
#include "PointCollections/Input/PointFileWriter.h"

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

}

FileCommands::FileCommands(Workspace& workspace, Questions& questions, QWidget& window)
    : QObject(&window), m_workspace(workspace), m_questions(questions), m_window(window)
{
  connect(&m_recentFiles, &RecentFiles::chosen, this,
          [this](const QString& name) { openFile(pathFrom(name)); });
}

/// Runs an action and tells what goes wrong.
template <class Action>
bool FileCommands::attempt(const QString& whatFails, Action action)
{
  try {
    return action();
  } catch (const std::bad_alloc&) {
    m_questions.tellFailure(whatFails, tr("There is not enough memory."));
  } catch (const std::exception& failure) {
    m_questions.tellFailure(whatFails, QString::fromUtf8(failure.what()));
  }
  return false;
}

void FileCommands::open()
{
  if (const auto file = m_questions.fileToOpen())
    openFile(*file);
}

bool FileCommands::openFile(const std::filesystem::path& file)
{
  if (!mayDiscard())
    return false;
  const auto name = nameOf(file.filename());
  const auto isOpen = attempt(tr("%1 cannot be opened.").arg(name), [&] {
    // The work may outlive this object if the user cancels.
    const auto opened = std::make_shared<OpenedDocument>();
    const auto read = [opened, file, files = diskFiles()] { *opened = openDocument(*files, file); };
    if (!runWithProgress(&m_window, tr("Opening %1 …").arg(name), read))
      return false;
    const auto warnings = opened->warnings;
    m_workspace.replaceDocument(std::move(*opened));
    for (const auto& warning : warnings)
      m_questions.tellWarning(QString::fromStdString(warning));
    return true;
  });
  if (isOpen) {
    m_recentFiles.add(file);
    offerUnsavedWork(file);
  }
  return isOpen;
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
    auto result = mayOverwrite ? m_workspace.save(file) : m_workspace.saveIfSafe(file);
    if (result.risk != Editor::OverwriteRisk::None) {
      if (!m_questions.mayOverwrite(file, result.risk))
        return false;
      result = m_workspace.save(file);
    }
    if (!result.warning.empty())
      m_questions.tellWarning(QString::fromStdString(result.warning));
    m_recentFiles.add(file);
    return true;
  });
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
    return write(*file, std::as_bytes(std::span(table)));
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
    return write(
        *file, std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
  });
}

bool FileCommands::write(const std::filesystem::path& file, std::span<const std::byte> bytes)
{
  const auto result = m_workspace.editor().files().write(file, bytes);
  if (!result.warning.empty())
    m_questions.tellWarning(QString::fromStdString(result.warning));
  return true;
}

}
