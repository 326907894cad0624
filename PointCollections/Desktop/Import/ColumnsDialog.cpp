// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Import/ColumnsDialog.h"

#include <QtCore/QSet>
#include <QtCore/QSignalBlocker>
#include <QtCore/QStringList>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QVBoxLayout>

#include <exception>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t neededColumns = 4; ///< the first ones of pointColumnNames

/// The fields of PointColumns, in the order of pointColumnNames.
std::array<std::optional<std::size_t>*, pointColumnNames.size()> fieldsOf(PointColumns& columns)
{
  return {&columns.collection, &columns.x, &columns.y, &columns.z, &columns.group, &columns.place};
}

}

ColumnsDialog::ColumnsDialog(UnknownTable table, QWidget* parent)
    : QDialog(parent),
      m_table(std::move(table)),
      m_separatorBox(new QComboBox(this)),
      m_namesBox(new QCheckBox(tr("The first &row has the names of the columns"), this)),
      m_preview(new QTableWidget(this)),
      m_advice(new QLabel(this))
{
  setWindowTitle(tr("Columns of a table"));
  new QVBoxLayout(this);
  addExplanation();
  auto* const form = new QFormLayout;
  addSeparators(*form);
  addColumns(*form);
  static_cast<QVBoxLayout*>(layout())->addLayout(form);
  addPreview();
  layout()->addWidget(m_advice);
  addButtons();
  showHeader();
}

ColumnsDialog::~ColumnsDialog() = default;

void ColumnsDialog::addExplanation()
{
  auto* const why = new QLabel(m_table.why, this);
  why->setWordWrap(true);
  why->setTextFormat(Qt::PlainText);
  why->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  layout()->addWidget(why);
}

void ColumnsDialog::addSeparators(QFormLayout& form)
{
  m_separatorBox->addItem(tr("Comma"), QChar(u','));
  m_separatorBox->addItem(tr("Semicolon"), QChar(u';'));
  m_separatorBox->addItem(tr("Tab"), QChar(u'\t'));
  m_separatorBox->setCurrentIndex(
      m_separatorBox->findData(QChar(QLatin1Char(m_table.header.separator))));
  form.addRow(tr("&Separator:"), m_separatorBox);
  form.addRow(m_namesBox);
  connect(m_separatorBox, &QComboBox::currentIndexChanged, this, &ColumnsDialog::readAgain);
  connect(m_namesBox, &QCheckBox::toggled, this, [this](bool hasNames) {
    m_table.header.hasNames = hasNames;
    showHeader();
  });
}

void ColumnsDialog::addColumns(QFormLayout& form)
{
  const std::array<QString, columnCount> labels = {
      tr("&Collection:"), tr("&x:"), tr("&y:"), tr("&z:"), tr("&Group:"), tr("&Place:")};
  for (std::size_t i = 0; i < columnCount; ++i) {
    m_columnBoxes.at(i) = new QComboBox(this);
    form.addRow(labels.at(i), m_columnBoxes.at(i));
    connect(m_columnBoxes.at(i), &QComboBox::currentIndexChanged, this, &ColumnsDialog::update);
  }
}

void ColumnsDialog::addPreview()
{
  m_preview->setAccessibleName(tr("The first rows of the table"));
  m_preview->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_preview->setTabKeyNavigation(false);          // Tab leads to the buttons
  m_preview->setLayoutDirection(Qt::LeftToRight); // as in the file; "-1" would be "1-" otherwise
  m_preview->verticalHeader()->hide();
  layout()->addWidget(m_preview);
}

void ColumnsDialog::addButtons()
{
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  m_open = buttons->addButton(tr("&Open"), QDialogButtonBox::AcceptRole);
  m_open->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout()->addWidget(buttons);
}

void ColumnsDialog::readAgain()
{
  try {
    m_table.header = m_table.readAgain(m_separatorBox->currentData().toChar().toLatin1());
    showHeader();
  } catch (const std::exception& failure) {
    m_advice->setText(QString::fromUtf8(failure.what()));
    m_open->setEnabled(false);
  }
}

void ColumnsDialog::showHeader()
{
  const QSignalBlocker blocker(m_namesBox);
  m_namesBox->setChecked(m_table.header.hasNames);
  showColumns();
  showPreview();
  update();
}

/// What the user sees for a column: its name, or its number if it has none.
QString ColumnsDialog::nameOf(std::size_t column) const
{
  const auto name = QString::fromStdString(m_table.header.columns.at(column)).simplified();
  return m_table.header.hasNames && !name.isEmpty() ? name : tr("Column %1").arg(column + 1);
}

/// Columns that have the usual names are chosen already.
void ColumnsDialog::showColumns()
{
  auto named = columnsByName(m_table.header);
  const auto fields = fieldsOf(named);
  for (std::size_t i = 0; i < columnCount; ++i) {
    auto& box = *m_columnBoxes.at(i);
    const QSignalBlocker blocker(box);
    box.clear();
    box.addItem(i < neededColumns ? tr("Choose one") : tr("None"));
    for (std::size_t column = 0; column < m_table.header.columns.size(); ++column)
      box.addItem(nameOf(column));
    box.setCurrentIndex(*fields.at(i) ? static_cast<int>(**fields.at(i)) + 1 : 0);
  }
}

void ColumnsDialog::showPreview()
{
  auto rows = m_table.header.firstRows;
  if (!m_table.header.hasNames)
    rows.insert(rows.begin(), m_table.header.columns);
  QStringList names;
  for (std::size_t column = 0; column < m_table.header.columns.size(); ++column)
    names << nameOf(column);
  m_preview->clear();
  m_preview->setColumnCount(static_cast<int>(names.size()));
  m_preview->setRowCount(static_cast<int>(rows.size()));
  m_preview->setHorizontalHeaderLabels(names);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column)
      m_preview->setItem(static_cast<int>(row), static_cast<int>(column),
                         new QTableWidgetItem(QString::fromStdString(rows[row][column])));
  }
}

std::optional<std::size_t> ColumnsDialog::chosen(std::size_t which) const
{
  const auto index = m_columnBoxes.at(which)->currentIndex();
  return index > 0 ? std::optional(static_cast<std::size_t>(index) - 1) : std::nullopt;
}

UnknownTable::Choice ColumnsDialog::choice() const
{
  UnknownTable::Choice choice{m_table.header, {}};
  const auto fields = fieldsOf(choice.columns);
  for (std::size_t i = 0; i < columnCount; ++i)
    *fields.at(i) = chosen(i);
  return choice;
}

/// Says what is missing.
void ColumnsDialog::update()
{
  QSet<std::size_t> used;
  bool isTwice = false;
  for (std::size_t i = 0; i < columnCount; ++i) {
    const auto column = chosen(i);
    isTwice = isTwice || (column && used.contains(*column));
    if (column)
      used << *column;
  }
  const auto isComplete = choice().columns.isComplete();
  m_open->setEnabled(isComplete && !isTwice);
  m_advice->setText(!isComplete ? tr("Choose the columns for collection, x, y and z.")
                    : isTwice   ? tr("A column is chosen twice. Choose each one once.")
                                : QString());
}

}
