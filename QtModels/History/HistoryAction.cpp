// SPDX-License-Identifier: MIT
#include "QtModels/History/HistoryAction.h"

#include "QtModels/Translation/LanguageWatcher.h"

namespace Tarvik {

HistoryAction::HistoryAction(Kind kind, const QString& prefix, QObject* parent)
    : QAction(parent), m_kind(kind), m_prefix(prefix)
{
  updateText();
  if (auto* const language = LanguageWatcher::instance())
    connect(language, &LanguageWatcher::languageChanged, this, &HistoryAction::updateText);
}

void HistoryAction::setDescription(const QString& description)
{
  m_description = description;
  updateText();
}

void HistoryAction::updateText()
{
  auto description = m_description;
  description.replace(QLatin1Char('&'), QLatin1String("&&")); // not a mnemonic: "R&D"
  if (m_prefix.isEmpty())
    setText(translatedText(description));
  else
    setText(description.isEmpty() ? m_prefix : m_prefix + QLatin1Char(' ') + description);
}

QString HistoryAction::translatedText(const QString& description) const
{
  const bool isUndo = m_kind == Kind::Undo;
  if (description.isEmpty())
    return isUndo ? tr("Undo") : tr("Redo");
  return (isUndo ? tr("Undo %1") : tr("Redo %1")).arg(description);
}

}
