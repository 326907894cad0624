// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointFile.h"

#include "GeneralServices/StringUtility.h"
#include "PointCollections/Input/AlikeNames.h"
#include "PointCollections/Input/CsvReader.h"
#include "PointCollections/Input/Encoding.h"
#include "PointCollections/Input/PointRows.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Progress.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t rowsBetweenTelling = 1000;

/// The names of the columns that are not read.
std::vector<std::string> ignoredColumns(const TableHeader& header, const PointColumns& columns)
{
  const std::array read = {columns.collection, columns.x,
                           columns.y,          columns.z,
                           columns.group,      columns.group ? columns.place : std::nullopt};
  std::vector<std::string> ignored;
  for (std::size_t i = 0; i < header.columns.size(); ++i) {
    if (std::find(read.begin(), read.end(), i) == read.end())
      ignored.push_back(displayName(header.columns[i]));
  }
  return ignored;
}

/// What the user is told about them.
std::string warningAbout(const std::vector<std::string>& ignored)
{
  constexpr std::size_t mostNames = 5;
  if (ignored.size() <= mostNames)
    return translated("the file has columns that are not read: {}", listed(ignored));
  return translatedCount(ignored.size() - mostNames,
                         // For translators: {1} is a list of names, {0} how many are left out
                         "the file has columns that are not read: {1} and {0} more",
                         "the file has columns that are not read: {1} and {0} more",
                         listed({ignored.begin(), ignored.begin() + mostNames}));
}

/// What the user is told about elements that are in several places.
std::string warningAboutRepeatedMembers(std::size_t count)
{
  return translatedCount(count,
                         "{} element is in more than one group, or twice in one; commands take it "
                         "out of the first place only",
                         "{} elements are in more than one group, or twice in one; commands take "
                         "them out of the first place only");
}

}

bool isPointsName(const std::filesystem::path& file)
{
  return StringUtility::toLower(Utf8::fromPath(file.extension())) == ".csv";
}

PointFileContent parsePointFile(std::string_view text,
                                const std::string& name,
                                const TableHeader& header,
                                const PointColumns& columns)
{
  const auto checked = checkedUtf8(text, name);
  CsvReader csv(checked, name, header.separator);
  PointFileContent content;
  if (header.hasNames) {
    std::vector<std::string> names;
    csv.readRow(names);
    if (const auto ignored = ignoredColumns(header, columns); !ignored.empty())
      content.warnings.push_back(csv.inRow(warningAbout(ignored)));
  }
  PointRows rows(csv, header, columns);
  for (std::size_t row = 1; rows.readRow(); ++row) {
    if (row % rowsBetweenTelling != 0)
      continue;
    checkInterruption();
    Progress::tell(csv.position(), checked.size());
  }
  content.collections = rows.takeCollections();
  content.groups = rows.groups();
  if (const auto warning = warningAboutAlikeNames(content.collections); !warning.empty())
    content.warnings.push_back(name + ": " + warning);
  if (rows.repeatedMembers() > 0)
    content.warnings.push_back(name + ": " + warningAboutRepeatedMembers(rows.repeatedMembers()));
  if (auto warning = rows.warning(); !warning.empty())
    content.warnings.push_back(std::move(warning));
  return content;
}

PointFileContent parsePointFile(std::string_view text, const std::string& name)
{
  const auto header = findHeader(text, name);
  return parsePointFile(text, name, header, requiredColumns(header, name));
}

std::vector<PointCollection> parsePoints(std::string_view text, const std::string& name)
{
  return parsePointFile(text, name).collections;
}

std::vector<PointCollection> readPointFile(const std::filesystem::path& path)
{
  return parsePoints(readText(path), printable(Utf8::fromPath(path)));
}

}
