// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Workspace/Workspace.h"

#include "PointCollections/Desktop/Text/LocalCounts.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <numeric>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

OpenedDocument emptyDocument()
{
  return {PointDocument::create(), {}};
}

std::size_t countPoints(const PointDocument& document)
{
  const auto& all = document.collections();
  return std::accumulate(all.begin(), all.end(), std::size_t{0},
                         [](auto sum, const auto& each) { return sum + each.points.size(); });
}

}

Workspace::Workspace(std::shared_ptr<Files> files, QObject* parent)
    : QObject(parent),
      m_files(std::move(files)),
      m_editor(emptyDocument(), m_files),
      m_history(m_editor.history()),
      m_recovery(m_editor)
{
  m_recoveryIsDue.setSingleShot(true);
  connect(&m_recoveryIsDue, &QTimer::timeout, this, &Workspace::writeRecovery);
  connect(&m_history, &History::changed, this, &Workspace::noteChange);
}

Workspace::~Workspace() = default;

GroupRequestHandler<GUIdentifier> Workspace::requestHandler()
{
  return [this](GroupRequest<GUIdentifier> request) {
    return m_editor.execute({.context = request.context,
                             .text = request.text,
                             .makeCommand = std::move(request.makeCommand),
                             .subject = std::move(request.subject)});
  };
}

void Workspace::replaceDocument(OpenedDocument opened)
{
  Q_EMIT aboutToReplaceDocument();
  m_editor.replaceDocument(std::move(opened));
  tellDocument();
}

void Workspace::recover(UnsavedWork work)
{
  Q_EMIT aboutToReplaceDocument();
  m_editor.replaceWithUnsaved(work.record.opened);
  m_recovery.adopt(std::move(work));
  tellDocument();
}

void Workspace::tellDocument()
{
  Q_EMIT documentReplaced();
  Q_EMIT titleChanged();
}

void Workspace::noteChange()
{
  m_recovery.changed();
  if (const auto due = m_recovery.dueTime()) {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*due - Recovery::Clock::now());
    m_recoveryIsDue.start((std::max)(wait, std::chrono::milliseconds(0)));
  } else {
    m_recoveryIsDue.stop();
  }
}

void Workspace::writeRecovery()
{
  m_recovery.pause();
}

Editor::SaveResult Workspace::saveNow(const std::filesystem::path& file, bool mayOverwrite)
{
  Q_EMIT aboutToSave();
  auto result = mayOverwrite ? m_editor.save(file) : m_editor.saveIfSafe(file);
  Q_EMIT titleChanged();
  return result;
}

std::unique_ptr<Saving> Workspace::beginSave(const std::filesystem::path& file, bool mayOverwrite)
{
  Q_EMIT aboutToSave();
  return m_editor.beginSave(file, mayOverwrite);
}

void Workspace::finishSave(const Saving& saving)
{
  m_editor.finishSave(saving);
  Q_EMIT titleChanged();
}

QString Workspace::title() const
{
  return m_editor.title().empty() ? tr("Untitled") : QString::fromStdString(m_editor.title());
}

QString Workspace::statistics() const
{
  const auto& document = *m_editor.document();
  //: %1 to %4 are like "2 elements", "3 points", "1 group", "0 elements"
  return tr("%1, %2, %3, %4 in no group")
      .arg(localCountOfElements(document.collections().size()),
           localCountOfPoints(countPoints(document)),
           localCountOfGroups(m_editor.document()->getGroups().size()),
           localCountOfElements(document.ungroupedElements().size()));
}

}
