// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtWidgets/QLineEdit>

#include <functional>

class QAction;

namespace Tarvik {

/// A line edit for the name of a group. While something is wrong with the name, it has a warning
/// sign and says what it is: beside the line, and to a screen reader.
class TKM_QTMODELS_API GroupNameEdit : public QLineEdit {
  Q_OBJECT

public:
  /// Says what is wrong with a name; empty if nothing is.
  using Check = std::function<QString(const QString& name)>;

  /// @param check   not empty
  /// @param parent  the owner of the line edit, or null
  GroupNameEdit(Check check, QWidget* parent);
  ~GroupNameEdit() override;

  /// What is wrong with the present text; empty if nothing is.
  QString fault() const;

  /// Shows what is wrong, or nothing if nothing is.
  void showFault();

private:
  Check m_check;
  QAction* m_warning;
};

}
