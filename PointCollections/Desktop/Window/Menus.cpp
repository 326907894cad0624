// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/Menus.h"

#include "PointCollections/Desktop/Window/Languages.h"

#include <QtCore/QEvent>
#include <QtCore/QList>
#include <QtCore/QSet>
#include <QtGui/QAction>
#include <QtGui/QActionGroup>
#include <QtGui/QKeySequence>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>

#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// The name with a mnemonic that each keyboard has and that is not taken, if there is one.
QString withMnemonic(QString name, QSet<QChar>& taken)
{
  for (int i = 0; i < name.size(); ++i) {
    const auto letter = name.at(i).toLower();
    if (letter >= u'a' && letter <= u'z' && !taken.contains(letter)) {
      taken.insert(letter);
      return name.insert(i, u'&');
    }
  }
  return name;
}

}

Menus::Menus(MainWindow& window) : QObject(&window), m_window(window)
{
  addFileMenu();
  addEditMenu();
  addGroupsMenu();
  addViewMenu();
  addLanguageMenu();
  window.installEventFilter(this);
}

Menus::~Menus() = default;

bool Menus::eventFilter(QObject* watched, QEvent* event)
{
  if (event->type() == QEvent::LanguageChange || event->type() == QEvent::LayoutDirectionChange)
    m_texts.retranslate();
  return QObject::eventFilter(watched, event);
}

QMenu* Menus::addMenu()
{
  return m_window.menuBar()->addMenu(QString());
}

void Menus::addFileMenu()
{
  auto* const menu = addMenu();
  auto* const files = &m_window.fileCommands();
  auto* const open = menu->addAction({}, QKeySequence::Open, files, &FileCommands::open);
  auto* const recent = menu->addMenu(QString());
  files->recentFiles().fill(*recent);
  menu->addSeparator();
  auto* const save = menu->addAction({}, QKeySequence::Save, files, &FileCommands::save);
  auto* const saveAs = menu->addAction({}, QKeySequence::SaveAs, files, &FileCommands::saveAs);
  menu->addSeparator();
  auto* const groups = menu->addAction({}, files, &FileCommands::exportGroups);
  auto* const picture = menu->addAction({}, files, [files, points = &m_window.points()] {
    files->exportPicture([points] { return points->picture(2); });
  });
  menu->addSeparator();
  auto* const quit = menu->addAction({}, QKeySequence::Quit, &m_window, &QWidget::close);
  m_texts.keep([=] {
    menu->setTitle(tr("&File"));
    open->setText(tr("&Open…"));
    recent->setTitle(tr("Open &recent"));
    save->setText(tr("&Save"));
    saveAs->setText(tr("Save &as…"));
    groups->setText(tr("Export &groups…"));
    picture->setText(tr("Export &picture…"));
    quit->setText(tr("&Quit"));
  });
}

void Menus::addEditMenu()
{
  auto* const menu = addMenu();
  auto* const undo = m_window.workspace().history().createUndoAction(this);
  undo->setShortcuts(QKeySequence::Undo);
  auto* const redo = m_window.workspace().history().createRedoAction(this);
  redo->setShortcuts(QKeySequence::Redo);
  menu->addActions({undo, redo});
  menu->addSeparator();
  auto* const find = menu->addAction({}, QKeySequence::Find, this, [this] {
    m_window.groups().filterBox().setFocus(Qt::ShortcutFocusReason);
    m_window.groups().filterBox().selectAll();
  });
  m_texts.keep([=] {
    menu->setTitle(tr("&Edit"));
    find->setText(tr("&Find"));
  });
}

void Menus::addGroupsMenu()
{
  auto* const menu = addMenu();
  menu->addActions(m_window.groups().actions().actions());
  m_texts.keep([=] { menu->setTitle(tr("&Groups")); });
}

void Menus::addViewMenu()
{
  auto* const points = &m_window.points();
  auto* const menu = addMenu();
  auto* const bar = m_window.addToolBar(QString());
  bar->setObjectName(QStringLiteral("points")); // by which its place is kept
  auto* const modes = new QActionGroup(this);
  const auto addMode = [&](const QKeySequence& key, PointsView::Mode mode) {
    auto* const action = modes->addAction(QString());
    action->setCheckable(true);
    action->setChecked(mode == points->mode());
    action->setShortcut(key);
    connect(action, &QAction::triggered, points, [points, mode] { points->setMode(mode); });
    menu->addAction(action);
    bar->addAction(action);
    return action;
  };
  auto* const turn = addMode(QKeySequence(Qt::CTRL | Qt::Key_1), PointsView::Mode::Turn);
  auto* const select = addMode(QKeySequence(Qt::CTRL | Qt::Key_2), PointsView::Mode::Select);
  auto* const all =
      menu->addAction({}, QKeySequence(Qt::CTRL | Qt::Key_0), points, &PointsView::resetCamera);
  bar->addAction(all);
  menu->addSeparator();
  const auto addStep = [&](int pixels) {
    return menu->addAction({}, &m_window, [this, pixels] { m_window.widenGroups(pixels); });
  };
  auto* const window = &m_window;
  auto* const wider = addStep(40);
  auto* const narrower = addStep(-40);
  auto* const panels = menu->addMenu(m_window.createPopupMenu());
  m_texts.keep([=] {
    menu->setTitle(tr("&View"));
    bar->setWindowTitle(tr("Points"));
    turn->setText(tr("&Turn points"));
    select->setText(tr("&Select by rectangle"));
    all->setText(tr("Show &all"));
    wider->setText(tr("&Widen groups"));
    narrower->setText(tr("&Narrow groups"));
    panels->setText(tr("&Panels"));
    // The border between groups and points goes where the arrow points.
    const auto isMirrored = window->isRightToLeft();
    wider->setShortcut(Qt::CTRL | Qt::ALT | (isMirrored ? Qt::Key_Left : Qt::Key_Right));
    narrower->setShortcut(Qt::CTRL | Qt::ALT | (isMirrored ? Qt::Key_Right : Qt::Key_Left));
  });
}

void Menus::addLanguageMenu()
{
  auto* const menu = addMenu();
  auto* const choices = new QActionGroup(this);
  const auto add = [&](const QString& code) {
    auto* const action = choices->addAction(QString());
    action->setCheckable(true);
    action->setChecked(Languages::chosen() == code);
    connect(action, &QAction::triggered, this, [code] { Languages::instance().choose(code); });
    menu->addAction(action);
    return action;
  };
  auto* const system = add(QString());
  QList<std::pair<QAction*, QString>> languages;
  for (const auto& code : Languages::instance().codes())
    languages.append({add(code), Languages::nativeName(code)});
  m_texts.keep([=] {
    menu->setTitle(tr("&Language"));
    system->setText(tr("As the &system"));
    // Those who cannot read the present language find their own.
    const auto text = system->text().toLower();
    QSet<QChar> taken{text.at(text.indexOf(u'&') + 1)};
    for (const auto& [action, name] : languages)
      action->setText(withMnemonic(name, taken));
  });
}

}
