// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"
#include "PointCollections/Document/PointCollection.h"
#include "PointCollections/Input/PointColumns.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Files of points: tables in UTF-8 text, with or without byte order mark, in the form that
/// CsvReader describes.
///
///     collection,x,y,z
///     Berlin,3937.9,941.4,4951.8
///     "Frankfurt, Oder",3832.6,990.2,4991.7
///
/// The first row names the columns, in any order and in capital or small letters. Other columns are
/// not read. The fields are separated by commas, semicolons or tabs, whichever gives these names:
/// see findHeader(). A program can let the user choose other columns: see PointColumns.
///
/// Each other row adds one point to the collection with that name; the rows of a collection need
/// not be together. Numbers are finite and decimal, with a point, and may have blanks around them.
/// A number that is too close to 0 is read as 0, with a warning.
///
/// Two more columns can tell the groups:
///
///     collection,x,y,z,group,place
///     Berlin,3937.9,941.4,4951.8,Europe,2
///     Utopia,,,,,
///     ,,,,Asia,
///
/// Each row then puts its collection into a group, at a place in it that counts from 1; without a
/// place, after all members that have one. A collection may have a row for each of several groups,
/// or several places in one; a warning tells how many do, because commands take an element out of
/// the first of its places only. A row without coordinates adds no point. A row with a group only
/// adds the group: groups that have such a row come first, in the order of these rows, and then the
/// others.
namespace Tarvik::PointCollections {

/// Whether the name ends in .csv, in upper or lower case.
bool isPointsName(const std::filesystem::path& file);

/// What is in a file of points.
struct PointFileContent {
  std::vector<PointCollection> collections; ///< in the order of their first rows, with new ids
  std::vector<TKGroup<GUIdentifier>> groups;
  std::vector<std::string> warnings = {}; ///< for the user: "name:line: ..."; usually none
};

/// Reads a text whose header names the columns.
/// @param name  what error messages call the text
/// @throws UnknownColumns if the header does not tell which columns are meant
/// @throws UserError "name:line: ..." at the first mistake
PointFileContent parsePointFile(std::string_view text, const std::string& name);

/// Reads a text with columns that the user has chosen.
/// @param header   from findHeader() or readHeader() for the same text; `hasNames` may be changed
/// @param columns  complete, and in the header
/// @throws UserError "name:line: ..." at the first mistake
PointFileContent parsePointFile(std::string_view text,
                                const std::string& name,
                                const TableHeader& header,
                                const PointColumns& columns);

/// Reads the collections in a text, without the groups.
/// @throws UserError as parsePointFile() does
std::vector<PointCollection> parsePoints(std::string_view text, const std::string& name);

/// Reads the collections in a file.
/// @throws UserError as parsePoints() and readText() do
std::vector<PointCollection> readPointFile(const std::filesystem::path& path);

}
