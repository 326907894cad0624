// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtGui/QIcon>

#include <cstddef>
#include <optional>
#include <vector>

namespace Tarvik {

class CommandBase;
class History;

/// The entries of a history as a list model. Row 0 is the state before the first entry; row n is
/// the state after n entries, with the description of the last of them.
///
/// It follows the history by inserting and removing rows: views keep their place. It keeps a copy
/// of the descriptions.
class TKM_QTMODELS_API HistoryModel : public QAbstractListModel {
  Q_OBJECT
  Q_PROPERTY(QString emptyLabel READ emptyLabel WRITE setEmptyLabel)
  Q_PROPERTY(QIcon cleanIcon READ cleanIcon WRITE setCleanIcon)

public:
  /// A model without a history: it is empty.
  explicit HistoryModel(QObject* parent = nullptr);
  ~HistoryModel() override;

  /// The history that is shown, or null.
  History* history() const;

  /// Shows another history.
  /// @param history  null: the model is empty. May be destroyed before the model
  void setHistory(History* history);

  /// The text of row 0.
  QString emptyLabel() const;

  /// Sets the text of row 0; unless it is set, it is "<empty>" in the user's language.
  void setEmptyLabel(const QString& label);

  /// The decoration of the row whose state is clean.
  QIcon cleanIcon() const;

  /// Sets the decoration of the row whose state is clean; none unless it is set.
  void setCleanIcon(const QIcon& icon);

  /// Whether the model is taking over a change right now. What views do meanwhile is not what the
  /// user wants, such as choosing another row for one that is removed.
  bool isFollowing() const;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
  /// An entry as the views know it.
  struct Row {
    const CommandBase* command; ///< only to be compared
    QString text;
  };

  void follow();
  void followOnce();
  void removeRowsFrom(int entry, int count);
  void appendRows();
  void updateTexts(int firstEntry, int endEntry);
  void followLanguage();
  void updateCleanRow();
  void tellAbout(int firstRow, int lastRow, int role);

  QPointer<History> m_history;
  std::vector<Row> m_rows; ///< those of the entries: m_rows[0] is row 1
  std::optional<int> m_cleanRow;
  std::optional<QString> m_emptyLabel;
  QIcon m_cleanIcon;
  bool m_isFollowing = false;
  bool m_isOutOfDate = false;
};

}
