// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/GroupsPanel.h"

#include "PointCollections/Desktop/Text/LocalCounts.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <cstddef>
#include <string>
#include <unordered_set>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// A disc in the colour of a group.
/// @param factor  pixels of the device for one of the window
QPixmap discOf(const QColor& colour, qreal factor)
{
  constexpr int size = 12;
  QPixmap disc(QSize(size, size) * factor);
  disc.setDevicePixelRatio(factor);
  disc.fill(Qt::transparent);
  QPainter painter(&disc);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(1, 1, 10, 10);
  return disc;
}

}

GroupsPanel::GroupsPanel(QWidget* parent)
    : QWidget(parent),
      m_filterBox(new QLineEdit(this)),
      m_counts(new QLabel(this)),
      m_tree(new GroupTreeView(this)),
      m_actions(new GroupActions(m_tree)),
      m_filter(new GroupFilterModel(this)),
      m_selection(new FilteredSelection(m_tree, m_filter))
{
  m_filterBox->setClearButtonEnabled(true);
  m_counts->hide();
  m_tree->setContextMenuPolicy(Qt::ActionsContextMenu);
  m_tree->header()->setStretchLastSection(false);

  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_filterBox);
  layout->addWidget(m_tree, 1);
  layout->addWidget(m_counts);

  connect(m_filterBox, &QLineEdit::textChanged, m_selection, &FilteredSelection::setFilterText);
  connect(m_filter, &GroupFilterModel::matchesChanged, this, &GroupsPanel::showCounts);
  connect(m_selection, &FilteredSelection::changed, this, &GroupsPanel::selectionChanged);
  retranslate();
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
  model->setRowData(
      [this, &model = *model, &colours](const QModelIndex& index, int role) -> QVariant {
        const auto isGroup = role == Qt::DecorationRole && index.column() == 0 &&
                             model.kindOf(index) == GroupItemModelBase::RowKind::Group;
        return isGroup ? discOf(colours.ofGroup(model.groupIdAt(index)), devicePixelRatioF())
                       : QVariant();
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
  m_selection->reset();
  showCounts();
}

void GroupsPanel::showCounts()
{
  //: %1 is like "2 groups", and %2 like "1 element"
  m_counts->setText(
      tr("%1 and %2 match")
          .arg(localCountOfGroups(static_cast<std::size_t>(m_filter->matchingGroups())),
               localCountOfElements(static_cast<std::size_t>(m_filter->matchingElements()))));
  m_counts->setVisible(!m_filter->filterText().isEmpty());
}

void GroupsPanel::changeEvent(QEvent* event)
{
  if (event->type() == QEvent::LanguageChange)
    retranslate();
  QWidget::changeEvent(event);
}

void GroupsPanel::retranslate()
{
  m_filterBox->setPlaceholderText(tr("Filter by name"));
  m_filterBox->setAccessibleName(tr("Filter by name"));
  m_filterBox->setAccessibleDescription(
      tr("Shows the groups and elements whose names contain the text."));
  if (auto* const clear = m_filterBox->findChild<QToolButton*>())
    clear->setAccessibleName(tr("Clear the filter"));
  m_counts->setAccessibleDescription(tr("Numbers of groups and elements"));
  if (m_model)
    showCounts();
}

QStringList GroupsPanel::expandedGroups() const
{
  auto ids = m_state->expandedGroups();
  const auto& groups = m_model->provider()->getGroups();
  std::unordered_set<std::string> present;
  for (const auto& group : groups)
    present.insert(group.getId().toString());
  ids.removeIf([&](const QString& id) { return !present.contains(id.toStdString()); });
  return ids;
}

void GroupsPanel::setExpandedGroups(const QStringList& ids)
{
  m_state->setExpandedGroups(ids);
}

QModelIndexList GroupsPanel::selectedRows() const
{
  return m_selection->rows();
}

std::vector<GUIdentifier> GroupsPanel::selectedElements() const
{
  std::vector<GUIdentifier> elements;
  for (const auto& index : selectedRows()) {
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
  const std::unordered_set<GUIdentifier> wanted(elements.begin(), elements.end());
  const auto first = m_selection->select([&](const QModelIndex& row) {
    const auto* const element = m_model->elementAt(row);
    return element && wanted.contains(*element);
  });
  if (first.isValid())
    m_tree->scrollTo(first);
}

}
