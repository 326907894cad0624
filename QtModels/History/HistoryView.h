// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QPointer>
#include <QtWidgets/QListView>

namespace Tarvik {

class History;
class HistoryGroup;
class HistoryModel;

/// Shows the entries of a history, as QUndoView does. The current row is the state of the document;
/// when the user chooses another row, entries are undone or redone until that state is reached.
class TKM_QTMODELS_API HistoryView : public QListView {
  Q_OBJECT
  Q_PROPERTY(QString emptyLabel READ emptyLabel WRITE setEmptyLabel)
  Q_PROPERTY(QIcon cleanIcon READ cleanIcon WRITE setCleanIcon)

public:
  /// A view without a history: it is empty.
  explicit HistoryView(QWidget* parent = nullptr);

  /// @param history  what is shown, or null
  /// @param parent   the owner of the view, or null
  explicit HistoryView(History* history, QWidget* parent = nullptr);

  /// @param group   whose active history is shown, or null
  /// @param parent  the owner of the view, or null
  explicit HistoryView(HistoryGroup* group, QWidget* parent = nullptr);
  ~HistoryView() override;

  /// The history that is shown, or null.
  History* history() const;

  /// The group whose active history is shown, or null.
  HistoryGroup* group() const;

  /// The text of the first row.
  QString emptyLabel() const;

  /// Sets the text of the first row; unless it is set, it is "<empty>" in the user's language.
  void setEmptyLabel(const QString& label);

  /// The decoration of the row whose state is clean; none unless it is set.
  QIcon cleanIcon() const;

  /// Sets the decoration of the row whose state is clean.
  void setCleanIcon(const QIcon& icon);

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): slots are more
  /// Shows this history, and follows no group any more.
  /// @param history  may be null, and may be destroyed before the view
  void setHistory(History* history);

  /// Shows the active history of the group.
  /// @param group  may be null, and may be destroyed before the view
  void setGroup(HistoryGroup* group);

protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private Q_SLOTS:
  void showPosition();

private: // NOLINT(readability-redundant-access-specifiers): slots are more
  void showHistory(History* history);

  HistoryModel* m_model; ///< a child
  QPointer<HistoryGroup> m_group;
};

}
