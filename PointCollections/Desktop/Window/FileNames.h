// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <filesystem>

/// @file
/// The names of files as the standard library and as Qt have them. Both keep every name.
namespace Tarvik::PointCollections {

std::filesystem::path pathFrom(const QString& name);

QString nameOf(const std::filesystem::path& file);

}
