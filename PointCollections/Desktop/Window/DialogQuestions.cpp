// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/DialogQuestions.h"

#include "PointCollections/Desktop/Import/ColumnsDialog.h"
#include "PointCollections/Desktop/Window/FileNames.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace Tarvik::PointCollections {
namespace {

QString inUsersLanguage(const char* text)
{
  return QCoreApplication::translate("Questions", text);
}

/// The filter of a file dialog, and the extension that a name gets if it has none.
struct FileFormat {
  QString filter;
  QString extension;
};

FileFormat formatOf(Questions::FileKind kind)
{
  switch (kind) {
  case Questions::FileKind::Project:
    return {inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Projects (*.tkpc)")), "tkpc"};
  case Questions::FileKind::Table:
    return {inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Tables (*.csv)")), "csv"};
  case Questions::FileKind::Picture:
    return {inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Pictures (*.png)")), "png"};
  }
  return {};
}

}

std::optional<std::filesystem::path> DialogQuestions::fileToOpen()
{
  const auto name = QFileDialog::getOpenFileName(
      &m_window, inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Open")), {},
      inUsersLanguage(
          QT_TRANSLATE_NOOP("Questions", "Projects and points (*.tkpc *.csv);;All files (*)")));
  return name.isEmpty() ? std::nullopt : std::optional(pathFrom(name));
}

std::optional<std::filesystem::path>
DialogQuestions::fileToWrite(FileKind kind, const std::filesystem::path& suggestion)
{
  const auto format = formatOf(kind);
  QFileDialog dialog(&m_window, inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Save")), {},
                     format.filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(format.extension);
  if (!suggestion.empty())
    dialog.selectFile(nameOf(suggestion));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return pathFrom(dialog.selectedFiles().constFirst());
}

std::optional<UnknownTable::Choice> DialogQuestions::chooseColumns(const UnknownTable& table)
{
  ColumnsDialog dialog(table, &m_window);
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.choice()) : std::nullopt;
}

Questions::UnsavedChanges DialogQuestions::aboutUnsavedChanges(const QString& title)
{
  QMessageBox box(
      QMessageBox::Question, QCoreApplication::applicationName(),
      inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Save the changes in %1?")).arg(title),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &m_window);
  box.setInformativeText(inUsersLanguage(
      QT_TRANSLATE_NOOP("Questions", "Otherwise the changes since the last time are lost.")));
  box.setDefaultButton(QMessageBox::Save);
  switch (box.exec()) {
  case QMessageBox::Save:
    return UnsavedChanges::Save;
  case QMessageBox::Discard:
    return UnsavedChanges::Discard;
  default:
    return UnsavedChanges::Cancel;
  }
}

Questions::FoundWork DialogQuestions::aboutFoundWork(const QString& title, const QString& summary)
{
  QMessageBox box(
      QMessageBox::Question, QCoreApplication::applicationName(),
      inUsersLanguage(
          QT_TRANSLATE_NOOP("Questions", "The changes in %1 were not saved the last time."))
          .arg(title),
      QMessageBox::NoButton, &m_window);
  box.setInformativeText(summary);
  const auto* const recover = box.addButton(
      inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Recover")), QMessageBox::AcceptRole);
  const auto* const discard = box.addButton(
      inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Discard")), QMessageBox::DestructiveRole);
  box.addButton(inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Later")), QMessageBox::RejectRole);
  box.exec();
  if (box.clickedButton() == recover)
    return FoundWork::Recover;
  return box.clickedButton() == discard ? FoundWork::Discard : FoundWork::Later;
}

bool DialogQuestions::mayOverwrite(const std::filesystem::path& file, Editor::OverwriteRisk risk)
{
  const auto* const text =
      risk == Editor::OverwriteRisk::OtherChanges
          ? QT_TRANSLATE_NOOP("Questions", "%1 has been changed by another program. Overwrite it?")
          : QT_TRANSLATE_NOOP("Questions", "%1 is there already. Overwrite it?");
  QMessageBox box(QMessageBox::Warning, QCoreApplication::applicationName(),
                  inUsersLanguage(text).arg(nameOf(file)), QMessageBox::Cancel, &m_window);
  const auto* const overwrite = box.addButton(
      inUsersLanguage(QT_TRANSLATE_NOOP("Questions", "Overwrite")), QMessageBox::DestructiveRole);
  box.setDefaultButton(QMessageBox::Cancel);
  box.exec();
  return box.clickedButton() == overwrite;
}

void DialogQuestions::tellFailure(const QString& what, const QString& why)
{
  QMessageBox box(QMessageBox::Critical, QCoreApplication::applicationName(), what, QMessageBox::Ok,
                  &m_window);
  box.setInformativeText(why);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

void DialogQuestions::tellWarning(const QString& text)
{
  QMessageBox::warning(&m_window, QCoreApplication::applicationName(), text);
}

}
