// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QAbstractProxyModel>
#include <QtCore/QList>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QString>

#include <memory>

namespace Tarvik {

class FilteredRows;

/// Shows the groups and elements whose names contain a text, in upper or lower case.
///
/// A group stays when its name or the name of a member contains the text. When its own name does,
/// all its members stay. Without a text, everything is shown, and changes of the source are told
/// as they are. With a text, each of them is told as one change of the layout.
///
/// Names are kept from the first text on, until there is none. A text that continues the one before
/// is searched for only in the names that matched. When rows of single lists of the source change,
/// only these lists are searched; after a change of its whole layout, all names are read again.
class TKM_QTMODELS_API GroupFilterModel : public QAbstractProxyModel {
  Q_OBJECT
  Q_PROPERTY(QString filterText READ filterText WRITE setFilterText NOTIFY filterTextChanged)

public:
  /// A filter without a text and a source.
  explicit GroupFilterModel(QObject* parent = nullptr);
  ~GroupFilterModel() override;

  /// @param source  a GroupItemModel; not owned; may be null
  void setSourceModel(QAbstractItemModel* source) override;

  /// What names must contain; everything is shown when it is empty.
  QString filterText() const { return m_text; }

  /// Shows what contains another text.
  void setFilterText(const QString& text);

  /// How many groups have names that contain the text.
  int matchingGroups() const;

  /// How many members and ungrouped elements have names that contain the text. An element in
  /// several groups counts for each.
  int matchingElements() const;

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;
  QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;

  /// @name Drag and drop
  /// As in the source, above the next row that is shown. Groups that are dropped below the last
  /// shown group go to the end of all groups.
  /// @{
  bool canDropMimeData(const QMimeData* data,
                       Qt::DropAction action,
                       int row,
                       int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data,
                    Qt::DropAction action,
                    int row,
                    int column,
                    const QModelIndex& parent) override;
  /// @}

Q_SIGNALS:
  /// There is another text.
  void filterTextChanged(const QString& text);

  /// Other names match than before: those of another text, or of other rows while there is a text.
  void matchesChanged();

private:
  using Parents = QList<QPersistentModelIndex>;
  using Hint = QAbstractItemModel::LayoutChangeHint;

  bool isFiltering() const;
  void connectTo(const QAbstractItemModel* source);
  void connectRows(const QAbstractItemModel* source);
  void connectLayout(const QAbstractItemModel* source);
  void connectDestroyed(const QAbstractItemModel* source);
  bool isEndOfGroups(int row, const QModelIndex& parent) const;
  void beginLayout(const Parents& sourceParents = {}, Hint hint = NoLayoutChangeHint);
  void endLayout(const Parents& sourceParents = {}, Hint hint = NoLayoutChangeHint);
  void showMatches();
  Parents mapped(const Parents& sourceParents) const;
  void tellData(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles);

  QString m_text;
  std::unique_ptr<FilteredRows> m_rows; ///< those of the source
  QModelIndexList m_persistent;         ///< during a change of the layout
  Parents m_persistentSources;
};

}
