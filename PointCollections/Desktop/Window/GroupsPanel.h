// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Window/FilteredSelection.h"
#include "PointCollections/Desktop/Workspace/ElementColours.h"
#include "PointCollections/Document/PointDocument.h"
#include "QtModels/Editing/GroupEditor.h"
#include "QtModels/Models/GroupFilterModel.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Views/GroupActions.h"
#include "QtModels/Views/GroupTreeView.h"
#include "QtModels/Views/TreeViewState.h"

#include <QtCore/QModelIndex>
#include <QtCore/QStringList>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

namespace Tarvik::PointCollections {

/// The groups and elements of a document as a tree, with a box to filter them by their names.
class GroupsPanel : public QWidget {
  Q_OBJECT

public:
  explicit GroupsPanel(QWidget* parent = nullptr);
  ~GroupsPanel() override;

  /// Shows another document.
  /// @param document  not null
  /// @param handler   executes what the user asks for
  /// @param colours   of the document; must live as long as the document is shown
  void setDocument(std::shared_ptr<PointDocument> document,
                   GroupRequestHandler<GUIdentifier> handler,
                   ElementColours& colours);

  GroupTreeView& tree() { return *m_tree; }
  GroupActions& actions() { return *m_actions; }
  QLineEdit& filterBox() { return *m_filterBox; }

  /// The model that the tree shows, below the filter.
  GroupItemModel<GUIdentifier>& model() { return *m_model; }

  /// What makes the user's changes.
  GroupEditor<GUIdentifier>& editor() { return *m_editor; }

  /// The ids of the expanded groups of the document, sorted.
  QStringList expandedGroups() const;

  /// Expands the groups with these ids, and collapses all others.
  void setExpandedGroups(const QStringList& ids);

  /// The selected rows of the model, also those that the filter hides: they stay selected.
  QModelIndexList selectedRows() const;

  /// The elements in the selected rows, and the members of selected groups. May have repetitions.
  std::vector<GUIdentifier> selectedElements() const;

  /// Selects the rows of these elements, in all groups, and shows the first. Does not emit
  /// selectionChanged().
  void selectElements(const std::vector<GUIdentifier>& elements);

Q_SIGNALS:
  /// The user has selected other rows.
  void selectionChanged();

  /// Something has failed. The text is for the user.
  void failed(const QString& message);

protected:
  void changeEvent(QEvent* event) override;

private:
  void retranslate();
  void showCounts();

  QLineEdit* m_filterBox;
  QLabel* m_counts;
  GroupTreeView* m_tree;
  GroupActions* m_actions;
  GroupFilterModel* m_filter;
  FilteredSelection* m_selection;   ///< owned by the tree
  TreeViewState* m_state = nullptr; ///< owned by the tree
  std::unique_ptr<GroupItemModel<GUIdentifier>> m_model;
  GroupEditor<GUIdentifier>* m_editor = nullptr; ///< owned by the model
};

}
