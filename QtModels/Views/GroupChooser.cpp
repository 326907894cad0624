// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupChooser.h"

#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/Translation/LanguageWatcher.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace Tarvik {
namespace {

constexpr int rowRole = Qt::UserRole;

}

GroupChooser::GroupChooser(const GroupItemModelBase& model, QWidget* parent)
    : QDialog(parent),
      m_filter(new QLineEdit(this)),
      m_groups(new QListWidget(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
  const auto nameParts = [this] {
    setWindowTitle(tr("Move to Group"));
    m_filter->setPlaceholderText(tr("Find a group"));
    m_filter->setAccessibleName(tr("Find a group"));
    m_groups->setAccessibleName(tr("Groups"));
  };
  nameParts();
  connect(LanguageWatcher::instance(), &LanguageWatcher::languageChanged, this, nameParts);
  m_filter->setClearButtonEnabled(true);
  m_filter->installEventFilter(this);
  m_groups->setUniformItemSizes(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_filter);
  layout->addWidget(m_groups);
  layout->addWidget(m_buttons);

  addGroups(model);
  connect(m_filter, &QLineEdit::textChanged, this, &GroupChooser::showMatches);
  connect(m_groups, &QListWidget::itemActivated, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  showMatches(QString());
}

GroupChooser::~GroupChooser() = default;

QModelIndex GroupChooser::chosenGroup() const
{
  const auto* item = m_groups->currentItem();
  return item ? QModelIndex(item->data(rowRole).value<QPersistentModelIndex>()) : QModelIndex();
}

bool GroupChooser::eventFilter(QObject* object, QEvent* event)
{
  if (object == m_filter && event->type() == QEvent::KeyPress) {
    const auto key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Up) {
      moveInList(key == Qt::Key_Down ? 1 : -1);
      return true;
    }
  }
  return QDialog::eventFilter(object, event);
}

void GroupChooser::addGroups(const GroupItemModelBase& model)
{
  using RowKind = GroupItemModelBase::RowKind;
  for (int row = 0;; ++row) {
    const auto group = model.index(row, GroupItemModelBase::NameColumn);
    if (model.kindOf(group) != RowKind::Group)
      break;
    auto* item = new QListWidgetItem(group.data().toString(), m_groups);
    item->setData(rowRole, QVariant::fromValue(QPersistentModelIndex(group)));
  }
}

/// Shows the groups that match, and chooses the first one.
void GroupChooser::showMatches(const QString& text)
{
  QListWidgetItem* first = nullptr;
  for (int row = 0; row < m_groups->count(); ++row) {
    auto* item = m_groups->item(row);
    const bool matches = item->text().contains(text, Qt::CaseInsensitive);
    item->setHidden(!matches);
    if (matches && !first)
      first = item;
  }
  m_groups->setCurrentItem(first);
  m_buttons->button(QDialogButtonBox::Ok)->setEnabled(first != nullptr);
}

/// Chooses the next group that is shown in that direction.
void GroupChooser::moveInList(int step)
{
  for (int row = m_groups->currentRow() + step; row >= 0 && row < m_groups->count(); row += step) {
    if (!m_groups->item(row)->isHidden()) {
      m_groups->setCurrentRow(row);
      return;
    }
  }
}

}
