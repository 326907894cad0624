// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/FileNames.h"

#include <QtCore/QFile>

namespace Tarvik::PointCollections {

// On Linux, names are bytes in any encoding, and Qt has its own way to keep those that are no
// UTF-8.

std::filesystem::path pathFrom(const QString& name)
{
#if defined(_WIN32)
  return {name.toStdWString()};
#else
  return {QFile::encodeName(name).toStdString()};
#endif
}

QString nameOf(const std::filesystem::path& file)
{
#if defined(_WIN32)
  return QString::fromStdWString(file.wstring());
#else
  return QFile::decodeName(QByteArray::fromStdString(file.string()));
#endif
}

}
