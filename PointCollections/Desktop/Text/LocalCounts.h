// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <cstddef>

/// Counted things in the user's language, with the number written as QLocale does: "1 element",
/// "2,500 elements". The texts are those of Counts.h.
namespace Tarvik::PointCollections {

QString localCountOfElements(std::size_t number);
QString localCountOfGroups(std::size_t number);
QString localCountOfPoints(std::size_t number);

}
