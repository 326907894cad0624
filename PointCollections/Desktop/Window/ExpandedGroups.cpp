// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/ExpandedGroups.h"

#include "PointCollections/Desktop/Window/FileNames.h"

#include <QtCore/QFileInfo>
#include <QtCore/QList>
#include <QtCore/QSettings>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace Tarvik::PointCollections::ExpandedGroups {
namespace {

const auto listKey = QStringLiteral("expandedGroups");
const auto fileKey = QStringLiteral("file");
const auto groupsKey = QStringLiteral("groups");

struct Entry {
  QString file;
  QStringList groups;
};

QString absoluteName(const std::filesystem::path& file)
{
  return QFileInfo(nameOf(file)).absoluteFilePath();
}

QList<Entry> read()
{
  QSettings settings;
  QList<Entry> entries;
  const auto count = settings.beginReadArray(listKey);
  for (int i = 0; i < count; ++i) {
    settings.setArrayIndex(i);
    entries.append({settings.value(fileKey).toString(), settings.value(groupsKey).toStringList()});
  }
  return entries;
}

void write(const QList<Entry>& entries)
{
  QSettings settings;
  settings.remove(listKey);
  settings.beginWriteArray(listKey, static_cast<int>(entries.size()));
  for (int i = 0; i < entries.size(); ++i) {
    settings.setArrayIndex(i);
    settings.setValue(fileKey, entries[i].file);
    settings.setValue(groupsKey, entries[i].groups);
  }
  settings.endArray();
}

}

std::optional<QStringList> of(const std::filesystem::path& project)
{
  const auto entries = read();
  const auto found = std::find_if(
      entries.begin(), entries.end(),
      [name = absoluteName(project)](const Entry& entry) { return entry.file == name; });
  return found != entries.end() ? std::optional(found->groups) : std::nullopt;
}

void remember(const std::filesystem::path& project, const QStringList& ids)
{
  if (project.empty())
    return;
  auto entries = read();
  const auto name = absoluteName(project);
  entries.removeIf([&](const Entry& entry) { return entry.file == name; });
  entries.prepend({name, ids});
  write(entries.mid(0, greatestCount));
}

QStringList in(const PointDocument& document)
{
  QStringList ids;
  for (const auto& id : document.expandedGroups())
    ids.append(QString::fromStdString(id.toString()));
  return ids;
}

void keepIn(PointDocument& document, const QStringList& ids)
{
  std::unordered_set<Identifier> groups;
  for (const auto& text : ids) {
    if (const auto id = Identifier::fromString(text.toStdString()))
      groups.insert(*id);
  }
  document.setExpandedGroups(std::move(groups));
}

}
