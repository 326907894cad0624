// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "QtModels/History/History.h"
#include "QtModels/History/HistoryView.h"
#include "QtModels/Models/GroupItemModel.h"

#include <QtWidgets>

#include <map>

using namespace Tarvik;

class Plants : public TKGroupProvider<Identifier> {
public:
  void add(const std::string& name)
  {
    auto plants = elements();
    m_names[plants.emplace_back()] = name;
    setElements(plants);
  }

  std::string getElementName(const Identifier& plant) override { return m_names.at(plant); }

private:
  std::map<Identifier, std::string> m_names;
};

class PlantsWindow : public QMainWindow {
public:
  PlantsWindow()
  {
    for (const auto* name : {"Oak", "Elm", "Rose"})
      m_plants->add(name);

    m_tree.setModel(&m_model);
    m_tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
    setCentralWidget(&m_tree);
    auto* dock = new QDockWidget(tr("History"), this);
    dock->setWidget(new HistoryView(&m_history));
    addDockWidget(Qt::RightDockWidgetArea, dock);

    auto* edit = menuBar()->addMenu(tr("&Edit"));
    edit->addAction(m_history.createUndoAction(this));
    edit->addAction(m_history.createRedoAction(this));
    edit->addAction(tr("Create &Group"), this, [this] {
      m_history.push(std::make_shared<CreateTKGroupCmd<Identifier>>(m_plants, selected(), ""));
    });
    edit->addAction(tr("&Sort"), this, [this] {
      m_history.push(std::make_shared<SortTKGroupsAlphabeticallyCmd<Identifier>>(m_plants));
    });

    connect(&m_history, &History::failed, statusBar(),
            [this](const QString& message) { statusBar()->showMessage(message); });
    connect(&m_history, &History::cleanChanged, this,
            [this](bool isClean) { setWindowModified(!isClean); });
  }

private:
  std::vector<Identifier> selected() const
  {
    std::vector<Identifier> plants;
    for (const auto& index : m_tree.selectionModel()->selectedRows())
      if (const auto* plant = m_model.elementAt(index))
        plants.push_back(*plant);
    return plants;
  }

  std::shared_ptr<Plants> m_plants = std::make_shared<Plants>(); // shared by the commands
  History m_history;                                             // beside it, and not in it
  GroupItemModel<Identifier> m_model{m_plants};
  QTreeView m_tree;
};
