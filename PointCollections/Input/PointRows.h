// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"
#include "PointCollections/Document/PointCollection.h"
#include "PointCollections/Input/CsvReader.h"
#include "PointCollections/Input/GroupColumns.h"
#include "PointCollections/Input/PointColumns.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// Collects the elements and groups of a file of points, row by row.
class PointRows {
public:
  /// @param csv      stands before the first row of points; must outlive this
  /// @param header   of the same text
  /// @param columns  complete, and in the header
  PointRows(CsvReader& csv, const TableHeader& header, const PointColumns& columns);

  /// Reads one row.
  /// @return false at the end of the text
  /// @throws UserError "name:line: ..." if there is a mistake in it
  bool readRow();

  /// The elements of all rows so far, which are taken away.
  std::vector<PointCollection> takeCollections() { return std::move(m_collections); }

  std::vector<TKGroup<GUIdentifier>> groups() const { return m_groups.groups(); }

  /// How many elements are in more than one group, or twice in one.
  std::size_t repeatedMembers() const { return m_repeatedMembers; }

  /// About numbers that are too close to 0, in one line; empty if there are none.
  std::string warning() const;

private:
  const std::string& field(std::optional<std::size_t> column) const;
  void add();
  double coordinate(const char* name, std::optional<std::size_t> column);
  PointCollection& collectionNamed(const std::string& name);
  void addToGroup(const PointCollection& collection);

  CsvReader& m_csv;
  const TableHeader& m_header;
  PointColumns m_columns;
  std::vector<std::string> m_fields;
  std::vector<PointCollection> m_collections;
  std::unordered_map<std::string, std::size_t> m_places; ///< of collections, by name
  GroupColumns m_groups;
  std::vector<unsigned char> m_placesInGroups; ///< of each collection; 2 for two or more
  std::size_t m_repeatedMembers = 0;
  std::string m_firstVanished;
  std::size_t m_vanished = 0;
};

}
