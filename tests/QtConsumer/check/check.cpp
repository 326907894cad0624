// SPDX-License-Identifier: MIT
// Uses the window of the application of docs/qt.md as a user does, and prints what is to be seen.
#include "../PlantsWindow.h"

#include <iostream>

namespace {

void print(const QAbstractItemModel& model,
           const QModelIndex& parent,
           const std::string& indentation)
{
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const auto index = model.index(row, 0, parent);
    std::cout << indentation << index.data().toString().toStdString() << '\n';
    print(model, index, indentation + "  ");
  }
}

QAction* actionOf(const PlantsWindow& window, const QString& start)
{
  for (auto* const action : window.menuBar()->actions().first()->menu()->actions())
    if (action->text().startsWith(start))
      return action;
  throw std::runtime_error("there is no such action: " + start.toStdString());
}

void printAll(PlantsWindow& window)
{
  print(*dynamic_cast<QTreeView&>(*window.centralWidget()).model(), {}, "  ");
  std::cout << "menu: " << actionOf(window, "Undo")->text().toStdString() << '\n';
  std::cout << "history:\n";
  print(*window.findChild<HistoryView*>()->model(), {}, "  ");
}

}

int main(int argc, char** argv)
{
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  PlantsWindow window;
  window.show();
  auto& tree = dynamic_cast<QTreeView&>(*window.centralWidget());

  const auto selectRow = [&](int row) {
    tree.selectionModel()->select(tree.model()->index(row, 0),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
  };
  selectRow(0);
  selectRow(1);
  actionOf(window, "Create")->trigger();
  actionOf(window, "&Sort")->trigger();
  std::cout << "created and sorted" << (window.isWindowModified() ? ", not saved" : "") << ":\n";
  printAll(window);

  window.findChild<HistoryView*>()->setCurrentIndex(
      window.findChild<HistoryView*>()->model()->index(0, 0));
  std::cout << "the first row of the history chosen"
            << (window.isWindowModified() ? ", not saved" : "") << ":\n";
  printAll(window);
}
