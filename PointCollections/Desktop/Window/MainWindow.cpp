// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/MainWindow.h"

#include "PointCollections/Desktop/Window/DialogQuestions.h"
#include "PointCollections/Desktop/Window/FileNames.h"
#include "QtModels/History/HistoryView.h"

#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QUrl>
#include <QtGui/QAction>
#include <QtGui/QActionGroup>
#include <QtGui/QCloseEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>

#include <utility>

namespace Tarvik::PointCollections {
namespace {

const auto geometryKey = QStringLiteral("window/geometry");
const auto stateKey = QStringLiteral("window/state");

/// The first file of what is dragged into the window; empty if there is none.
QString droppedFile(const QMimeData& data)
{
  const auto urls = data.urls();
  return urls.isEmpty() ? QString() : urls.constFirst().toLocalFile();
}

}

MainWindow::MainWindow(std::shared_ptr<Files> files, std::unique_ptr<Questions> questions)
    : m_workspace(std::move(files)),
      m_questions(questions ? std::move(questions) : std::make_unique<DialogQuestions>(*this)),
      m_fileCommands(new FileCommands(m_workspace, *m_questions, *this)),
      m_groups(new GroupsPanel(this)),
      m_points(new PointsView(this)),
      m_statistics(new QLabel(this))
{
  setAcceptDrops(true);
  arrange();
  addFileMenu();
  addEditMenu();
  addGroupsMenu();
  addViewMenu();
  connectParts();
  showDocument();
  showTitle();
  const QSettings settings;
  restoreGeometry(settings.value(geometryKey).toByteArray());
  restoreState(settings.value(stateKey).toByteArray());
}

MainWindow::~MainWindow()
{
  delete centralWidget(); // its parts ask for colours until they are destroyed
}

void MainWindow::arrange()
{
  auto* const splitter = new QSplitter(this);
  splitter->addWidget(m_groups);
  splitter->addWidget(m_points);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({300, 620});
  setCentralWidget(splitter);
  addHistoryPanel();
  statusBar()->addPermanentWidget(m_statistics);
  resize(1200, 760);
  resizeDocks({findChild<QDockWidget*>()}, {280}, Qt::Horizontal);
}

void MainWindow::addHistoryPanel()
{
  auto* const panel = new QDockWidget(tr("History"), this);
  panel->setObjectName(QStringLiteral("history")); // by which its place is kept
  auto* const view = new HistoryView(&m_workspace.history(), panel);
  view->setEmptyLabel(tr("Opened"));
  view->setAccessibleName(tr("History"));
  panel->setWidget(view);
  addDockWidget(Qt::RightDockWidgetArea, panel);
}

void MainWindow::addFileMenu()
{
  auto* const menu = menuBar()->addMenu(tr("&File"));
  auto* const files = m_fileCommands;
  menu->addAction(tr("&Open…"), QKeySequence::Open, files, &FileCommands::open);
  files->recentFiles().fill(*menu->addMenu(tr("Open &recent")));
  menu->addSeparator();
  menu->addAction(tr("&Save"), QKeySequence::Save, files, &FileCommands::save);
  menu->addAction(tr("Save &as…"), QKeySequence::SaveAs, files, &FileCommands::saveAs);
  menu->addSeparator();
  menu->addAction(tr("Export &groups…"), files, &FileCommands::exportGroups);
  menu->addAction(tr("Export &picture…"), files, [this] {
    m_fileCommands->exportPicture([this] { return m_points->picture(2); });
  });
  menu->addSeparator();
  menu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
}

void MainWindow::addEditMenu()
{
  auto* const menu = menuBar()->addMenu(tr("&Edit"));
  auto* const undo = m_workspace.history().createUndoAction(this);
  undo->setShortcuts(QKeySequence::Undo);
  auto* const redo = m_workspace.history().createRedoAction(this);
  redo->setShortcuts(QKeySequence::Redo);
  menu->addActions({undo, redo});
  menu->addSeparator();
  menu->addAction(tr("&Find"), QKeySequence::Find, this, [this] {
    m_groups->filterBox().setFocus(Qt::ShortcutFocusReason);
    m_groups->filterBox().selectAll();
  });
}

void MainWindow::addGroupsMenu()
{
  menuBar()->addMenu(tr("&Groups"))->addActions(m_groups->actions().actions());
}

void MainWindow::addViewMenu()
{
  auto* const menu = menuBar()->addMenu(tr("&View"));
  auto* const bar = addToolBar(tr("Points"));
  bar->setObjectName(QStringLiteral("points"));
  auto* const modes = new QActionGroup(this);
  const auto addMode = [&](const QString& text, const QKeySequence& key, PointsView::Mode mode) {
    auto* const action = modes->addAction(text);
    action->setCheckable(true);
    action->setChecked(mode == m_points->mode());
    action->setShortcut(key);
    connect(action, &QAction::triggered, m_points, [this, mode] { m_points->setMode(mode); });
    menu->addAction(action);
    bar->addAction(action);
  };
  addMode(tr("&Turn points"), QKeySequence(Qt::CTRL | Qt::Key_1), PointsView::Mode::Turn);
  addMode(tr("&Select by rectangle"), QKeySequence(Qt::CTRL | Qt::Key_2), PointsView::Mode::Select);
  auto* const all = menu->addAction(tr("Show &all"), QKeySequence(Qt::CTRL | Qt::Key_0), m_points,
                                    &PointsView::resetCamera);
  bar->addAction(all);
  menu->addSeparator();
  menu->addMenu(createPopupMenu())->setText(tr("&Panels"));
}

void MainWindow::connectParts()
{
  connect(&m_workspace, &Workspace::documentReplaced, this, &MainWindow::showDocument);
  connect(&m_workspace, &Workspace::titleChanged, this, &MainWindow::showTitle);
  connect(&m_workspace.history(), &History::changed, this, [this] {
    setWindowModified(m_workspace.editor().hasUnsavedChanges());
    showStatistics();
  });
  connect(&m_workspace.history(), &History::failed, this, &MainWindow::showFailure);
  connect(qApp, &QGuiApplication::commitDataRequest, this,
          [this] { m_workspace.keepUnsavedWork(); });
  connect(m_groups, &GroupsPanel::failed, this, &MainWindow::showFailure);
  connect(m_groups, &GroupsPanel::selectionChanged, this, &MainWindow::showSelectionInSpace);
  connect(m_points, &PointsView::selectionChanged, this, &MainWindow::showSelectionInTree);
}

/// The tree lets go of the old document and its colours before these are destroyed.
void MainWindow::showDocument()
{
  const auto document = m_workspace.editor().document();
  auto colours = std::make_unique<ElementColours>(document);
  m_groups->setDocument(document, m_workspace.requestHandler(), *colours);
  m_colours = std::move(colours);
  m_points->setCloud(PointCloud(document->collections()));
  m_points->setColours(m_colours->colours());
  m_points->setNames([this](std::uint32_t number) {
    return QString::fromStdString(m_colours->element(number).name);
  });
  m_points->setMimeDataMaker([this](const auto&) {
    return m_groups->editor().dragData(m_groups->tree().selectedGroupRows());
  });
  m_colours->setListener([this] { m_points->setColours(m_colours->colours()); });
  setWindowModified(m_workspace.editor().hasUnsavedChanges());
  showStatistics();
}

void MainWindow::showTitle()
{
  setWindowTitle(m_workspace.title() + QStringLiteral("[*]"));
  setWindowFilePath(nameOf(m_workspace.editor().projectFile()));
}

void MainWindow::showStatistics()
{
  m_statistics->setText(m_workspace.statistics());
}

void MainWindow::showFailure(const QString& message)
{
  m_questions->tellFailure(tr("That did not work."), message);
}

void MainWindow::showSelectionInSpace()
{
  PointsView::Elements numbers;
  for (const auto& element : m_groups->selectedElements()) {
    if (const auto number = m_colours->numberOf(element))
      numbers.push_back(*number);
  }
  m_points->setSelection(std::move(numbers));
}

void MainWindow::showSelectionInTree()
{
  std::vector<GUIdentifier> elements;
  for (const auto number : m_points->selection())
    elements.push_back(m_colours->element(number).id);
  m_groups->selectElements(elements);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
  if (!m_fileCommands->mayDiscard()) {
    event->ignore();
    return;
  }
  m_workspace.forgetUnsavedWork();
  QSettings settings;
  settings.setValue(geometryKey, saveGeometry());
  settings.setValue(stateKey, saveState());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
  if (!droppedFile(*event->mimeData()).isEmpty())
    event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
  const auto name = droppedFile(*event->mimeData());
  if (!name.isEmpty())
    m_fileCommands->openFile(pathFrom(name));
}

}
