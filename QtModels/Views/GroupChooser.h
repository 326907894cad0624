// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QPersistentModelIndex>
#include <QtWidgets/QDialog>

class QDialogButtonBox;
class QLineEdit;
class QListWidget;

namespace Tarvik {

class GroupItemModelBase;

/// A small dialog in which the user chooses a group. Typing shows only the groups whose names
/// contain the text; the arrow keys move in the list meanwhile.
class TKM_QTMODELS_API GroupChooser : public QDialog {
  Q_OBJECT

public:
  /// @param model   whose groups are offered
  /// @param parent  the owner of the dialog, or null
  explicit GroupChooser(const GroupItemModelBase& model, QWidget* parent = nullptr);
  ~GroupChooser() override;

  /// The group that is chosen, as a row of the model; invalid if there is none, or if it is deleted
  /// in the meantime.
  QModelIndex chosenGroup() const;

protected:
  bool eventFilter(QObject* object, QEvent* event) override;

private:
  void addGroups(const GroupItemModelBase& model);
  void showMatches(const QString& text);
  void moveInList(int step);

  QLineEdit* m_filter;
  QListWidget* m_groups;
  QDialogButtonBox* m_buttons;
};

}
