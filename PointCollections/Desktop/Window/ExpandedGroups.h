// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <QtCore/QStringList>

#include <filesystem>
#include <optional>

/// Which groups of a project the user has expanded. The project has those at the time when it was
/// saved. The settings of the program have those at the time when this user last looked at it:
/// looking does not change the file, and each user has groups expanded as they like.
namespace Tarvik::PointCollections::ExpandedGroups {

/// For how many projects this is remembered: those that were open last.
constexpr qsizetype greatestCount = 50;

/// The ids of the groups that the settings remember; nothing for a project that is not known.
std::optional<QStringList> of(const std::filesystem::path& project);

/// Remembers the ids for the next time.
/// @param project  nothing is remembered if it is empty
void remember(const std::filesystem::path& project, const QStringList& ids);

/// The ids of the groups that the document was saved with.
QStringList in(const PointDocument& document);

/// Keeps the ids in the document, which saves them.
void keepIn(PointDocument& document, const QStringList& ids);

}
