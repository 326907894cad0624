// SPDX-License-Identifier: MIT
#include "QtModels/History/HistoryModel.h"

#include "QtModels/History/Descriptions.h"
#include "QtModels/History/History.h"
#include "QtModels/Translation/LanguageWatcher.h"

#include <algorithm>
#include <utility>

namespace Tarvik {

HistoryModel::HistoryModel(QObject* parent) : QAbstractListModel(parent)
{
  if (auto* const language = LanguageWatcher::instance())
    connect(language, &LanguageWatcher::languageChanged, this, &HistoryModel::followLanguage);
}

HistoryModel::~HistoryModel() = default;

History* HistoryModel::history() const
{
  return m_history;
}

void HistoryModel::setHistory(History* history)
{
  if (history == m_history && history != nullptr)
    return;
  beginResetModel();
  if (m_history != nullptr)
    disconnect(m_history, nullptr, this, nullptr);
  m_history = history;
  m_rows.clear();
  m_cleanRow.reset();
  if (history != nullptr) {
    connect(history, &History::changed, this, &HistoryModel::follow);
    connect(history, &QObject::destroyed, this, [this] { setHistory(nullptr); });
    for (const auto& command : history->commands().entries())
      m_rows.push_back({command.get(), descriptionOf(*command)});
    if (history->cleanIndex() >= 0)
      m_cleanRow = history->cleanIndex();
  }
  endResetModel();
}

QString HistoryModel::emptyLabel() const
{
  return m_emptyLabel.value_or(tr("<empty>"));
}

void HistoryModel::setEmptyLabel(const QString& label)
{
  m_emptyLabel = label;
  if (rowCount() > 0)
    tellAbout(0, 0, Qt::DisplayRole);
}

QIcon HistoryModel::cleanIcon() const
{
  return m_cleanIcon;
}

void HistoryModel::setCleanIcon(const QIcon& icon)
{
  m_cleanIcon = icon;
  if (m_cleanRow)
    tellAbout(*m_cleanRow, *m_cleanRow, Qt::DecorationRole);
}

bool HistoryModel::isFollowing() const
{
  return m_isFollowing;
}

int HistoryModel::rowCount(const QModelIndex& parent) const
{
  return parent.isValid() || m_history.isNull() ? 0 : static_cast<int>(m_rows.size()) + 1;
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const
{
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
    return {};
  if (role == Qt::DisplayRole)
    return index.row() > 0 ? m_rows[static_cast<std::size_t>(index.row()) - 1].text : emptyLabel();
  if (role == Qt::DecorationRole && m_cleanRow == index.row() && !m_cleanIcon.isNull())
    return m_cleanIcon;
  return {};
}

/// Takes over what has changed. What a view does meanwhile may change the history again: that comes
/// next.
void HistoryModel::follow()
{
  m_isOutOfDate = true;
  if (std::exchange(m_isFollowing, true))
    return;
  while (std::exchange(m_isOutOfDate, false) && m_history != nullptr)
    followOnce();
  m_isFollowing = false;
}

/// A history releases entries at either end, and appends entries.
void HistoryModel::followOnce()
{
  const auto entries = m_history->commands().entries();
  const auto isSame = [](const Row& row, const auto& entry) { return row.command == entry.get(); };
  const auto firstKept =
      entries.empty() ? m_rows.end()
                      : std::find_if(m_rows.begin(), m_rows.end(),
                                     [&](const Row& row) { return isSame(row, entries.front()); });
  const auto endKept =
      std::mismatch(firstKept, m_rows.end(), entries.begin(), entries.end(), isSame).first;

  const auto released = static_cast<int>(firstKept - m_rows.begin());
  const auto undone = static_cast<int>(m_rows.end() - endKept);
  removeRowsFrom(static_cast<int>(endKept - m_rows.begin()), undone);
  removeRowsFrom(0, released);
  if (!m_isOutOfDate)
    appendRows();
  if (!m_isOutOfDate) {
    const auto last = m_history->index() - 1; // it may have taken another command over
    updateTexts(std::max(last, 0), last + 1);
    updateCleanRow();
  }
}

void HistoryModel::removeRowsFrom(int entry, int count)
{
  if (count == 0)
    return;
  beginRemoveRows(QModelIndex(), entry + 1, entry + count);
  const auto first = m_rows.begin() + entry;
  m_rows.erase(first, first + count);
  if (m_cleanRow && *m_cleanRow > entry) // moves with its row, or goes with it
    m_cleanRow = *m_cleanRow > entry + count ? std::optional(*m_cleanRow - count) : std::nullopt;
  endRemoveRows();
}

void HistoryModel::appendRows()
{
  const auto entries = m_history->commands().entries();
  if (entries.size() <= m_rows.size())
    return;
  beginInsertRows(QModelIndex(), static_cast<int>(m_rows.size()) + 1,
                  static_cast<int>(entries.size()));
  for (const auto& command : entries.subspan(m_rows.size()))
    m_rows.push_back({command.get(), descriptionOf(*command)});
  endInsertRows();
}

/// Reads descriptions again.
void HistoryModel::updateTexts(int firstEntry, int endEntry)
{
  std::optional<int> firstRow;
  int lastRow = 0;
  for (int entry = firstEntry; entry < endEntry; ++entry) {
    auto& known = m_rows[static_cast<std::size_t>(entry)].text;
    auto text = m_history->text(entry);
    if (text == known)
      continue;
    known = std::move(text);
    lastRow = entry + 1;
    firstRow = firstRow.value_or(lastRow);
  }
  if (firstRow)
    tellAbout(*firstRow, lastRow, Qt::DisplayRole);
}

void HistoryModel::followLanguage()
{
  if (m_history == nullptr || m_isFollowing)
    return;
  updateTexts(0, static_cast<int>(m_rows.size()));
  if (!m_emptyLabel)
    tellAbout(0, 0, Qt::DisplayRole);
}

void HistoryModel::updateCleanRow()
{
  const auto index = m_history->cleanIndex();
  const auto now = index >= 0 ? std::optional(index) : std::nullopt;
  const auto before = std::exchange(m_cleanRow, now);
  if (now == before)
    return;
  for (const auto& row : {before, now})
    if (row && *row < rowCount())
      tellAbout(*row, *row, Qt::DecorationRole);
}

void HistoryModel::tellAbout(int firstRow, int lastRow, int role)
{
  Q_EMIT dataChanged(index(firstRow), index(lastRow), {role});
}

}
