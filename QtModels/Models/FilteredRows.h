// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAbstractItemModel>
#include <QtCore/QList>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QString>

#include <memory>
#include <vector>

namespace Tarvik {

/// The rows of a GroupItemModel whose names contain a text, and those that are shown because of
/// them. Not for hosts.
///
/// It knows nothing while there is no pattern. All rows and indexes are the source's. After a
/// change of the source, call filter().
class FilteredRows {
public:
  using Parents = QList<QPersistentModelIndex>;

  /// What names must contain, case-folded.
  const QString& pattern() const { return m_pattern; }

  /// Whether there is a pattern.
  bool isFiltering() const { return !m_pattern.isEmpty(); }

  /// Reads all names of another source, which may be null, and filters them.
  void setSource(const QAbstractItemModel* source);

  /// Filters by another text.
  /// @param pattern  case-folded
  void setPattern(const QString& pattern);

  /// The rows that are shown below a row, ascending.
  const std::vector<int>& shownBelow(const QModelIndex& parent) const;

  /// Whether the top row is a group.
  bool isGroup(int row) const;

  /// How many groups there are.
  int groups() const { return static_cast<int>(m_groups.size()); }

  /// How many groups are shown. They come before the other shown rows.
  int shownGroups() const;

  /// How many groups have names that contain the text.
  int matchingGroups() const;

  /// How many members and ungrouped elements have names that contain the text.
  int matchingElements() const;

  /// There are new rows from first to last.
  void insert(const QModelIndex& parent, int first, int last);

  /// The rows from first to last have left.
  void remove(const QModelIndex& parent, int first, int last);

  /// The rows from first to last go before a row below `to`, counted before the move.
  void move(const QModelIndex& parent, int first, int last, const QModelIndex& to, int row);

  /// Reads the names below these rows; of all rows if there are none.
  void readAgain(const Parents& parents);

  /// Reads the names of the rows from first to last.
  /// @return whether other rows match
  bool readNamesAgain(const QModelIndex& first, const QModelIndex& last);

  /// Finds out which rows are shown. Searches only lists that have changed or been read again.
  void filter();

private:
  /// What is known of the rows that match.
  enum class Matches {
    Known,
    TooMany, ///< some that are known may not match any more
    Unknown
  };

  /// The rows below one row, or the top rows.
  struct Rows {
    std::vector<QString> names; ///< case-folded
    std::vector<int> matching;  ///< those with names that contain the text, ascending
    std::vector<int> shown;     ///< those that are not hidden, ascending
    Matches matches = Matches::Unknown;
    bool isWhole = false; ///< whether all are shown because the group itself matches
  };

  /// Names that go from one place to another.
  struct TakenRows {
    std::vector<QString> names;
    std::vector<std::unique_ptr<Rows>> groups;
  };

  Rows& rowsOf(const QModelIndex& parent);
  QString nameAt(int row, const QModelIndex& parent) const;
  std::unique_ptr<Rows> readRows(const QModelIndex& parent) const;
  void readAll();
  TakenRows readRange(const QModelIndex& parent, int first, int last) const;
  TakenRows takeRange(const QModelIndex& parent, int first, int last);
  void putRange(const QModelIndex& parent, int row, TakenRows rows);
  void forgetMatches(bool narrows);
  void showMembers(Rows& group, bool isWhole) const;
  void findMatches(Rows& rows) const;

  const QAbstractItemModel* m_source = nullptr;
  QString m_pattern;
  Rows m_top;
  std::vector<std::unique_ptr<Rows>> m_groups; ///< by row
};

}
