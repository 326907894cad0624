// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/RecentFiles.h"

#include "PointCollections/Desktop/Window/FileNames.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtWidgets/QMenu>

namespace Tarvik::PointCollections {
namespace {

const auto key = QStringLiteral("recentFiles");

QString absoluteName(const std::filesystem::path& file)
{
  return QFileInfo(nameOf(file)).absoluteFilePath();
}

}

RecentFiles::RecentFiles(QObject* parent) : QObject(parent) {}

QStringList RecentFiles::names()
{
  return QSettings().value(key).toStringList();
}

void RecentFiles::add(const std::filesystem::path& file)
{
  auto list = names();
  const auto name = absoluteName(file);
  list.removeAll(name);
  list.prepend(name);
  QSettings().setValue(key, list.mid(0, greatestCount));
}

void RecentFiles::remove(const std::filesystem::path& file)
{
  auto list = names();
  list.removeAll(absoluteName(file));
  QSettings().setValue(key, list);
}

void RecentFiles::fill(QMenu& menu)
{
  connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
    menu.clear();
    for (const auto& name : names()) {
      //: the name of a file and its folder
      auto text = tr("%1 — %2").arg(QFileInfo(name).fileName(), QFileInfo(name).path());
      menu.addAction(text.replace(u'&', QStringLiteral("&&")), this,
                     [this, name] { Q_EMIT chosen(name); });
    }
    if (menu.isEmpty())
      menu.addAction(tr("No files yet"))->setEnabled(false);
  });
}

}
