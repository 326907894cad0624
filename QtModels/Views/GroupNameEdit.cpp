// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupNameEdit.h"

#include "QtModels/Translation/LanguageWatcher.h"

#include <QtGui/QAction>
#include <QtGui/QFontMetrics>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolTip>

#include <utility>

namespace Tarvik {
namespace {

/// Below the beginning of what is edited. A hint is always to the right of its place.
QPoint placeOfHint(const QLineEdit& edit, const QString& text)
{
  const auto width = QFontMetrics(QToolTip::font()).horizontalAdvance(text);
  const auto area = edit.rect();
  return edit.mapToGlobal(edit.isRightToLeft() ? area.bottomRight() - QPoint(width, 0)
                                               : area.bottomLeft());
}

}

GroupNameEdit::GroupNameEdit(Check check, QWidget* parent)
    : QLineEdit(parent),
      m_check(std::move(check)),
      m_warning(addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), TrailingPosition))
{
  const auto nameIt = [this] { setAccessibleName(tr("Name of the group")); };
  nameIt();
  m_warning->setVisible(false);
  connect(LanguageWatcher::instance(), &LanguageWatcher::languageChanged, this, [this, nameIt] {
    nameIt();
    if (m_warning->isVisible())
      showFault();
  });
  connect(this, &QLineEdit::textEdited, this, &GroupNameEdit::showFault);
}

GroupNameEdit::~GroupNameEdit()
{
  QToolTip::hideText();
}

QString GroupNameEdit::fault() const
{
  return m_check(text());
}

void GroupNameEdit::showFault()
{
  const auto text = fault();
  m_warning->setVisible(!text.isEmpty());
  m_warning->setToolTip(text);
  setAccessibleDescription(text);
  QToolTip::showText(placeOfHint(*this, text), text, this); // an empty text hides it
}

}
