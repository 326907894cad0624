// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Import/UnknownTable.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableWidget>

#include <array>
#include <cstddef>
#include <optional>

namespace Tarvik::PointCollections {

/// Tells what was found in a table of points, shows its first rows, and lets the user choose what
/// separates its fields and which column holds what.
class ColumnsDialog : public QDialog {
  Q_OBJECT

public:
  /// @param table  what was found
  explicit ColumnsDialog(UnknownTable table, QWidget* parent = nullptr);
  ~ColumnsDialog() override;

  /// What the user has chosen; complete as soon as the dialog can be accepted.
  UnknownTable::Choice choice() const;

  /// The box for one of pointColumnNames.
  QComboBox& columnBox(std::size_t which) { return *m_columnBoxes.at(which); }

  QComboBox& separatorBox() { return *m_separatorBox; }
  QCheckBox& namesBox() { return *m_namesBox; }
  QTableWidget& preview() { return *m_preview; }

private:
  static constexpr std::size_t columnCount = pointColumnNames.size();

  void addExplanation();
  void addSeparators(QFormLayout& form);
  void addColumns(QFormLayout& form);
  void addPreview();
  void addButtons();
  void readAgain();
  void showHeader();
  void showColumns();
  void showPreview();
  void update();
  QString nameOf(std::size_t column) const;
  std::optional<std::size_t> chosen(std::size_t which) const;

  UnknownTable m_table;
  QComboBox* m_separatorBox;
  QCheckBox* m_namesBox;
  std::array<QComboBox*, columnCount> m_columnBoxes = {};
  QTableWidget* m_preview;
  QLabel* m_advice;
  QPushButton* m_open = nullptr;
};

}
