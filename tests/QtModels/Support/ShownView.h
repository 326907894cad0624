// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/Identifier.h"
#include "QtModels/Support/EditedDocument.h"
#include "QtModels/Views/GroupNameEdit.h"
#include "QtModels/Views/GroupTreeView.h"
#include "QtModels/Views/ProxyChain.h"

#include <QtCore/QItemSelectionModel>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <string>

namespace Tarvik {

/// A document in a view on the screen, with all groups expanded.
struct ShownView {
  explicit ShownView(const std::string& text) : document(text)
  {
    view.setModel(&document.model);
    view.expandAll();
    view.resize(300, 400);
    view.show();
    view.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus();
  }

  /// The index of the view, which may show a proxy.
  QModelIndex row(char name) const
  {
    return ProxyChain::fromGroupModel(document.row(name), view.model());
  }

  /// Selects the rows; the last one becomes the current one.
  void select(const std::string& names)
  {
    view.selectionModel()->clear();
    for (const char name : names)
      view.selectionModel()->setCurrentIndex(row(name), QItemSelectionModel::Select |
                                                            QItemSelectionModel::Rows);
  }

  /// The names of the selected rows, in their order.
  std::string selected() const
  {
    auto rows = view.selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(), [this](const auto& a, const auto& b) {
      return view.visualRect(a).top() < view.visualRect(b).top();
    });
    std::string names;
    for (const auto& each : rows)
      names += each.data().toString().toStdString();
    return names;
  }

  /// The line edit in which a name is edited, or null.
  GroupNameEdit* nameEdit() const
  {
    for (auto* edit : view.viewport()->findChildren<GroupNameEdit*>()) {
      if (edit->isVisible())
        return edit;
    }
    return nullptr;
  }

  EditedDocument<Identifier> document;
  GroupTreeView view;
};

}
