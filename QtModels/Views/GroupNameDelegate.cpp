// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupNameDelegate.h"

#include "QtModels/Editing/GroupEditorBase.h"
#include "QtModels/Views/GroupNameEdit.h"
#include "QtModels/Views/ProxyChain.h"

#include <QtCore/QEvent>
#include <QtCore/QPersistentModelIndex>
#include <QtGui/QKeyEvent>

namespace Tarvik {
namespace {

GroupNameEdit* nameEdit(QObject* object)
{
  return qobject_cast<GroupNameEdit*>(object);
}

bool isKeyThatCommits(const QEvent& event)
{
  if (event.type() != QEvent::KeyPress)
    return false;
  const auto key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab ||
         key == Qt::Key_Backtab;
}

/// Such marks would go to the other end of a name in a row of the other direction.
bool hasMarksAtItsEnds(const QString& name)
{
  return !name.isEmpty() && !(name.front().isLetter() && name.back().isLetter());
}

QString faultOfName(const QModelIndex& index, const QString& name)
{
  const auto* groupEditor = ProxyChain::editorOf(index.model());
  return groupEditor ? groupEditor->faultOfName(ProxyChain::toGroupModel(index), name) : QString();
}

}

GroupNameDelegate::GroupNameDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

GroupNameDelegate::~GroupNameDelegate() = default;

QWidget* GroupNameDelegate::createEditor(QWidget* parent,
                                         const QStyleOptionViewItem&,
                                         const QModelIndex& index) const
{
  return new GroupNameEdit([index = QPersistentModelIndex(index)](
                               const QString& name) { return faultOfName(index, name); },
                           parent);
}

/// Views call this again when the row changes: what the user has typed stays then.
void GroupNameDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
  auto* edit = nameEdit(editor);
  if (edit && !edit->isModified())
    edit->setText(index.data(Qt::EditRole).toString());
}

void GroupNameDelegate::setModelData(QWidget* editor,
                                     QAbstractItemModel* model,
                                     const QModelIndex& index) const
{
  const auto* edit = nameEdit(editor);
  if (edit && edit->fault().isEmpty())
    model->setData(index, edit->text());
}

void GroupNameDelegate::initStyleOption(QStyleOptionViewItem* option,
                                        const QModelIndex& index) const
{
  QStyledItemDelegate::initStyleOption(option, index);
  if (option->direction == Qt::RightToLeft && hasMarksAtItsEnds(option->text))
    option->text = u'\u2068' + option->text + u'\u2069';
}

bool GroupNameDelegate::eventFilter(QObject* object, QEvent* event)
{
  auto* edit = nameEdit(object);
  if (edit && isKeyThatCommits(*event) && !edit->fault().isEmpty()) {
    edit->showFault();
    return true;
  }
  return QStyledItemDelegate::eventFilter(object, event);
}

}
