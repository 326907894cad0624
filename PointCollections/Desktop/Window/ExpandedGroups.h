// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>

#include <filesystem>

/// Which groups of a project the user has expanded. The settings of the program remember it by the
/// file of the project, not the project itself: whoever looks at a project does not change it, each
/// of its users has groups expanded as they like, and the file stays the same for other programs.
namespace Tarvik::PointCollections::ExpandedGroups {

/// For how many projects this is remembered: those that were open last.
constexpr qsizetype greatestCount = 50;

/// The ids of the groups; none for a project that is not known.
QStringList of(const std::filesystem::path& project);

/// Remembers the ids for the next time.
/// @param project  nothing is remembered if it is empty
void remember(const std::filesystem::path& project, const QStringList& ids);

}
