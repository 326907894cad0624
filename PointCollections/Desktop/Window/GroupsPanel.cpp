// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/GroupsPanel.h"

#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// A disc in the colour of a group.
QPixmap discOf(const QColor& colour)
{
  QPixmap disc(12, 12);
  disc.fill(Qt::transparent);
  QPainter painter(&disc);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(1, 1, 10, 10);
  return disc;
}

/// Adds runs of consecutive rows below a parent to a selection.
template <class IsSelected>
void appendRuns(QItemSelection& selection,
                const QAbstractItemModel& model,
                const QModelIndex& parent,
                int first,
                IsSelected isSelected)
{
  const auto end = model.rowCount(parent);
  for (int row = first; row < end; ++row) {
    if (!isSelected(row))
      continue;
    const auto begin = row;
    while (row + 1 < end && isSelected(row + 1))
      ++row;
    selection.append(QItemSelectionRange(model.index(begin, 0, parent),
                                         model.index(row, model.columnCount(parent) - 1, parent)));
  }
}

}

GroupsPanel::GroupsPanel(QWidget* parent)
    : QWidget(parent),
      m_filterBox(new QLineEdit(this)),
      m_counts(new QLabel(this)),
      m_tree(new GroupTreeView(this)),
      m_actions(new GroupActions(m_tree)),
      m_filter(new GroupFilterModel(this))
{
  m_filterBox->setPlaceholderText(tr("Filter by name"));
  m_filterBox->setAccessibleName(tr("Filter by name"));
  m_filterBox->setClearButtonEnabled(true);
  m_counts->setAccessibleName(tr("Numbers of groups and elements"));
  m_tree->setContextMenuPolicy(Qt::ActionsContextMenu);
  m_tree->header()->setStretchLastSection(false);

  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_filterBox);
  layout->addWidget(m_tree, 1);
  layout->addWidget(m_counts);

  connect(m_filterBox, &QLineEdit::textChanged, m_filter, &GroupFilterModel::setFilterText);
  connect(m_filter, &GroupFilterModel::matchesChanged, this, &GroupsPanel::showCounts);
  connect(m_tree, &GroupTreeView::selectedRowsChanged, this, [this] {
    if (!m_isSelecting)
      Q_EMIT selectionChanged();
  });
}

GroupsPanel::~GroupsPanel()
{
  blockSignals(true);        // others may be destroyed already
  m_tree->setModel(nullptr); // before the models are destroyed
}

void GroupsPanel::setDocument(std::shared_ptr<PointDocument> document,
                              GroupRequestHandler<GUIdentifier> handler,
                              ElementColours& colours)
{
  auto model = std::make_unique<GroupItemModel<GUIdentifier>>(std::move(document));
  m_editor = new GroupEditor<GUIdentifier>(*model, std::move(handler));
  model->setRowData([&model = *model, &colours](const QModelIndex& index, int role) -> QVariant {
    const auto isGroup = role == Qt::DecorationRole && index.column() == 0 &&
                         model.kindOf(index) == GroupItemModelBase::RowKind::Group;
    return isGroup ? discOf(colours.ofGroup(model.groupIdAt(index))) : QVariant();
  });
  connect(model.get(), &GroupItemModelBase::failed, this, &GroupsPanel::failed);
  connect(m_editor, &GroupEditorBase::failed, this, &GroupsPanel::failed);

  m_filter->setSourceModel(model.get());
  m_tree->setModel(m_filter);
  m_tree->header()->setSectionResizeMode(GroupItemModelBase::NameColumn, QHeaderView::Stretch);
  m_tree->header()->setSectionResizeMode(GroupItemModelBase::CountColumn,
                                         QHeaderView::ResizeToContents);
  m_model = std::move(model);
  delete m_state;
  m_state = new TreeViewState(m_tree);
  showCounts();
}

void GroupsPanel::showCounts()
{
  const QLocale locale;
  const auto isFiltering = !m_filter->filterText().isEmpty();
  m_counts->setText(tr("%1 groups and %2 elements match")
                        .arg(locale.toString(m_filter->matchingGroups()),
                             locale.toString(m_filter->matchingElements())));
  m_counts->setVisible(isFiltering);
}

std::vector<GUIdentifier> GroupsPanel::selectedElements() const
{
  std::vector<GUIdentifier> elements;
  for (const auto& index : m_tree->selectedGroupRows()) {
    if (const auto* const element = m_model->elementAt(index)) {
      elements.push_back(*element);
    } else if (const auto* const group =
                   m_model->provider()->findGroup(m_model->groupIdAt(index))) {
      const auto& members = group->getGroupMembers();
      elements.insert(elements.end(), members.begin(), members.end());
    }
  }
  return elements;
}

void GroupsPanel::selectElements(const std::vector<GUIdentifier>& elements)
{
  const auto rows = rowsOf(elements);
  m_isSelecting = true;
  m_tree->selectionModel()->select(rows,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  m_isSelecting = false;
  if (!rows.isEmpty())
    m_tree->scrollTo(rows.constFirst().topLeft());
}

/// The rows of the filtered tree, as few ranges.
QItemSelection GroupsPanel::rowsOf(const std::vector<GUIdentifier>& elements) const
{
  const std::unordered_set<GUIdentifier> wanted(elements.begin(), elements.end());
  const auto isWanted = [&](const QModelIndex& parent) {
    return [&, parent](int row) {
      const auto* const element = m_model->elementAt(m_model->index(row, 0, parent));
      return element && wanted.contains(*element);
    };
  };
  QItemSelection rows;
  const auto groups = static_cast<int>(m_model->provider()->getGroups().size());
  for (int group = 0; group < groups; ++group) {
    const auto parent = m_model->index(group, 0);
    appendRuns(rows, *m_model, parent, 0, isWanted(parent));
  }
  appendRuns(rows, *m_model, {}, groups, isWanted({}));
  return m_filter->mapSelectionFromSource(rows);
}

}
