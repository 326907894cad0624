// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointCollection.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Files of points: comma-separated UTF-8 text, with or without byte order mark, in the form that
/// CsvReader describes.
///
///     collection,x,y,z
///     Berlin,3937.9,941.4,4951.8
///     "Frankfurt, Oder",3832.6,990.2,4991.7
///
/// The first row names the columns. Each other row adds one point to the collection with that name;
/// the rows of a collection need not be together. Numbers are finite and decimal, with a point, and
/// may have blanks around them.
namespace Tarvik::PointCollections {

/// Reads the collections in a text, in the order of their first points. They get new ids.
/// @param name  what error messages call the text
/// @throws UserError "name:line: ..." at the first mistake
std::vector<PointCollection> parsePoints(std::string_view text, const std::string& name);

/// Reads the collections in a file.
/// @throws UserError as parsePoints() and readText() do
std::vector<PointCollection> readPointFile(const std::filesystem::path& path);

}
