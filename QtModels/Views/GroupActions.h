// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QList>
#include <QtCore/QModelIndex>
#include <QtCore/QObject>

#include <array>
#include <cstddef>

class QAction;
class QTimer;

namespace Tarvik {

class GroupTreeView;
struct SelectedRows;

/// Actions for the menus, tool bars and keys of a view of groups. They are enabled according to
/// what is selected in the view, and their texts follow a change of language.
///
/// The actions are added to the view, where their shortcuts work while it has the focus. Set the
/// view's contextMenuPolicy to Qt::ActionsContextMenu to have them as its context menu.
class TKM_QTMODELS_API GroupActions : public QObject {
  Q_OBJECT

public:
  /// What the actions do.
  enum Action {
    NewGroup,        ///< a group of the selected elements, whose name can be typed at once
    MoveToGroup,     ///< asks for the group
    RemoveFromGroup, ///< makes members ungrouped
    RenameGroup,
    DeleteGroups,
    SortGroups,
    MoveUp,   ///< groups among groups, members within their group, ungrouped elements
    MoveDown, ///< the same
    ActionCount
  };
  Q_ENUM(Action)

  /// @param view  becomes the owner of the actions and of this object; not null
  explicit GroupActions(GroupTreeView* view);
  ~GroupActions() override;

  /// One of the actions, to be added to menus. Its texts, shortcut and icon may be changed; texts
  /// are set again at a change of language.
  /// @param which  not ActionCount
  QAction* action(Action which) const;

  /// All actions, in the order of the enumeration.
  QList<QAction*> actions() const;

protected:
  bool eventFilter(QObject* object, QEvent* event) override;

private:
  enum class Direction { Up, Down };

  void add(Action which, void (GroupActions::*slot)());
  void retranslate() const;
  void update();

  void newGroup();
  void moveToGroup();
  void removeFromGroup();
  void renameGroup();
  void deleteGroups();
  void sortGroups();
  void moveUp();
  void moveDown();
  void move(Direction direction);
  QModelIndex neighbour(const SelectedRows& rows, Direction direction) const;

  GroupTreeView* m_view;
  std::array<QAction*, static_cast<std::size_t>(ActionCount)> m_actions{};
  QTimer* m_update; ///< once after several changes
};

}
