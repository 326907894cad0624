// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QModelIndex>
#include <QtCore/QObject>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtWidgets/QTreeView>

namespace Tarvik {

/// Lets a tree view of groups keep what its user sees, where the view alone would lose it.
///
/// - Rows stay where they are on the screen while others come and leave above them.
/// - A group that comes back by undo, or when a filter no longer hides it, is expanded as before.
/// - After a reset of the model, the same groups are expanded, and the same rows are selected and
///   current.
///
/// Groups are remembered by their ids, so an application can store which ones are expanded with its
/// project. Groups with the same id are expanded alike when they come back.
///
/// The view shows a GroupItemModel, or proxies of one. It gets its state back as soon as control
/// returns to the event loop, once for all changes until then.
class TKM_QTMODELS_API TreeViewState : public QObject {
  Q_OBJECT

public:
  /// @param view  whose state is kept; owns this object. It must have its model already, and keep
  ///              it
  explicit TreeViewState(QTreeView* view);
  ~TreeViewState() override;

  /// The ids of the expanded groups, sorted. Also of those that have left and may come back.
  QStringList expandedGroups() const;

  /// Expands the groups with these ids, and collapses all others. Unknown ids are remembered: a
  /// group that comes later may have one.
  void setExpandedGroups(const QStringList& ids);

  /// Gives the view its state back now, instead of waiting for the event loop.
  void restore();

Q_SIGNALS:
  /// The model has changed, so the state is going to be restored.
  void stateLost(QPrivateSignal);

private:
  /// What a row shows, by ids: a group, an element, or an element in a group.
  struct RowName {
    QString group;
    QString element;

    bool isEmpty() const { return group.isEmpty() && element.isEmpty(); }
    friend bool operator==(const RowName& a, const RowName& b)
    {
      return a.group == b.group && a.element == b.element;
    }
    friend size_t qHash(const RowName& name, size_t seed = 0)
    {
      return qHashMulti(seed, name.group, name.element);
    }
  };

  /// A row on the screen.
  struct VisibleRow {
    QPersistentModelIndex index;
    int top; ///< in pixels from the top of the viewport
  };

  static RowName nameOf(const QModelIndex& index);
  void connectModel();
  void connectView();
  void rememberRows();
  void rememberBeforeReset();
  void restoreLater();
  void restoreQuietly() noexcept;
  void expandAgain(int first, int last);
  void setExpanded(const QModelIndex& index, bool isExpanded);
  void layOutLater();
  void restoreSelection();
  void restorePosition();
  QHash<RowName, QModelIndex> find(const QSet<RowName>& names) const;

  QTreeView* m_view;
  QSet<QString> m_expanded;
  QList<VisibleRow> m_rows;   ///< on the screen before the change, from the top
  bool m_isExpanding = false; ///< the view tells what is known already
  bool m_isWaiting = false;   ///< to restore
  bool m_wasLaidOut = false;  ///< groups may have come back
  bool m_wasReset = false;
  QSet<RowName> m_selected; ///< before the reset, like the following
  RowName m_current;
  RowName m_top; ///< of the screen; empty if the view was not scrolled
};

}
