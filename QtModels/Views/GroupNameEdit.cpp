// SPDX-License-Identifier: MIT
#include "QtModels/Views/GroupNameEdit.h"

#include "QtModels/Translation/LanguageWatcher.h"

#include <QtGui/QAction>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolTip>

#include <utility>

namespace Tarvik {

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
  QToolTip::showText(mapToGlobal(rect().bottomLeft()), text, this); // an empty text hides it
}

}
