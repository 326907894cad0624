// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/MainWindow.h"

#include "PointCollections/Desktop/Window/DialogQuestions.h"
#include "PointCollections/Desktop/Window/ExpandedGroups.h"
#include "PointCollections/Desktop/Window/FileNames.h"
#include "PointCollections/Desktop/Window/Languages.h"
#include "PointCollections/Desktop/Window/Menus.h"
#include "QtModels/History/HistoryView.h"

#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QUrl>
#include <QtGui/QCloseEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStatusBar>

#include <algorithm>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr int usualWidthOfHistory = 280;

const auto geometryKey = QStringLiteral("window/geometry");
const auto stateKey = QStringLiteral("window/state");
const auto mirroredKey = QStringLiteral("window/mirrored");
const auto splitterKey = QStringLiteral("window/splitter");

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
  Languages::instance(); // before there are texts
  arrange();
  new Menus(*this);
  connectParts();
  showDocument();
  retranslate();
  m_languageIsNew.start();
  const QSettings settings;
  restoreGeometry(settings.value(geometryKey).toByteArray());
  if (restoreState(settings.value(stateKey).toByteArray()))
    m_isMirrored = settings.value(mirroredKey).toBool();
  mirrorPanels();
  m_splitter->restoreState(settings.value(splitterKey).toByteArray());
}

MainWindow::~MainWindow()
{
  delete centralWidget(); // its parts ask for colours until they are destroyed
}

void MainWindow::arrange()
{
  m_splitter = new QSplitter(this);
  m_splitter->setChildrenCollapsible(false);
  m_splitter->addWidget(m_groups);
  m_splitter->addWidget(m_points);
  m_splitter->setStretchFactor(1, 1);
  m_splitter->setSizes({300, 620});
  setCentralWidget(m_splitter);
  addHistoryPanel();
  statusBar()->addPermanentWidget(m_statistics);
  resize(1200, 760);
  resizeDocks({findChild<QDockWidget*>()}, {usualWidthOfHistory}, Qt::Horizontal);
}

void MainWindow::addHistoryPanel()
{
  m_historyPanel = new QDockWidget(this);
  m_historyPanel->setObjectName(QStringLiteral("history")); // by which its place is kept
  m_history = new HistoryView(&m_workspace.history(), m_historyPanel);
  m_historyPanel->setWidget(m_history);
  addDockWidget(Qt::RightDockWidgetArea, m_historyPanel);
}

/// Qt mirrors everything but this: a panel is on the left or on the right in all languages.
void MainWindow::mirrorPanels()
{
  if (m_isMirrored == isRightToLeft())
    return;
  m_isMirrored = isRightToLeft();
  const auto area = dockWidgetArea(m_historyPanel);
  const auto isAtSide = area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
  if (!isAtSide || m_historyPanel->isFloating())
    return;
  const auto width = isVisible() ? m_historyPanel->width() : usualWidthOfHistory;
  addDockWidget(area == Qt::LeftDockWidgetArea ? Qt::RightDockWidgetArea : Qt::LeftDockWidgetArea,
                m_historyPanel);
  resizeDocks({m_historyPanel}, {width}, Qt::Horizontal);
}

void MainWindow::changeEvent(QEvent* event)
{
  if (event->type() == QEvent::LanguageChange) {
    retranslate();
    m_languageIsNew.start();
  } else if (event->type() == QEvent::LayoutDirectionChange) {
    mirrorPanels();
  }
  QMainWindow::changeEvent(event);
}

void MainWindow::retranslate()
{
  m_historyPanel->setWindowTitle(tr("History"));
  m_history->setEmptyLabel(tr("Opened"));
  m_history->setAccessibleName(tr("History"));
  m_statistics->setAccessibleDescription(tr("Numbers of elements, points and groups"));
  showTitle();
  showStatistics();
}

void MainWindow::tellLanguageFault()
{
  const auto fault = Languages::instance().takeFault();
  if (!fault.isEmpty())
    m_questions->tellWarning(fault);
}

void MainWindow::connectParts()
{
  m_languageIsNew.setSingleShot(true);
  connect(&m_languageIsNew, &QTimer::timeout, this, &MainWindow::tellLanguageFault);
  connect(&m_workspace, &Workspace::aboutToReplaceDocument, this,
          &MainWindow::rememberExpandedGroups);
  connect(&m_workspace, &Workspace::aboutToSave, this, [this] {
    ExpandedGroups::keepIn(*m_workspace.editor().document(), m_groups->expandedGroups());
  });
  connect(&m_workspace, &Workspace::documentReplaced, this, &MainWindow::showDocument);
  connect(&m_workspace, &Workspace::titleChanged, this, &MainWindow::showTitle);
  connect(&m_workspace.history(), &History::changed, this, &MainWindow::showChange);
  connect(&m_workspace.history(), &History::failed, this, &MainWindow::showFailure);
  connect(qApp, &QGuiApplication::commitDataRequest, this, &MainWindow::prepareForEnd);
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
  m_points->setMimeDataMaker(
      [this](const auto&) { return m_groups->editor().dragData(m_groups->selectedRows()); });
  m_colours->setListener([this] { m_points->setColours(m_colours->colours()); });
  m_groups->setExpandedGroups(ExpandedGroups::of(m_workspace.editor().projectFile())
                                  .value_or(ExpandedGroups::in(*document)));
  showChange();
}

void MainWindow::showChange()
{
  m_isEnding = false;
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

void MainWindow::widenGroups(int pixels)
{
  const auto sizes = m_splitter->sizes();
  m_splitter->setSizes({(std::max)(sizes.at(0) + pixels, 1), (std::max)(sizes.at(1) - pixels, 1)});
}

void MainWindow::prepareForEnd()
{
  m_workspace.keepUnsavedWork();
  rememberExpandedGroups();
  rememberWindow();
  m_isEnding = true;
}

void MainWindow::rememberExpandedGroups()
{
  ExpandedGroups::remember(m_workspace.editor().projectFile(), m_groups->expandedGroups());
}

void MainWindow::rememberWindow() const
{
  QSettings settings;
  settings.setValue(geometryKey, saveGeometry());
  settings.setValue(stateKey, saveState());
  settings.setValue(mirroredKey, m_isMirrored);
  settings.setValue(splitterKey, m_splitter->saveState());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
  if (m_isEnding)
    return; // the unsaved changes are kept
  if (!m_fileCommands->mayDiscard()) {
    event->ignore();
    return;
  }
  m_workspace.forgetUnsavedWork();
  rememberExpandedGroups();
  rememberWindow();
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
