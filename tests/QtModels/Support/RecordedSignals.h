// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAbstractItemModel>
#include <QtCore/QObject>

#include <string>
#include <vector>

namespace Tarvik {

/// The signals of a model in words, from now on: "A: rows 0 to 1 come", "rows 2 to 2 change".
class RecordedSignals {
public:
  explicit RecordedSignals(const QAbstractItemModel& model)
  {
    using Model = QAbstractItemModel;
    QObject::connect(&model, &Model::rowsInserted, &m_context,
                     [this](const QModelIndex& parent, int first, int last) {
                       record(parent, first, last, "come");
                     });
    QObject::connect(&model, &Model::rowsRemoved, &m_context,
                     [this](const QModelIndex& parent, int first, int last) {
                       record(parent, first, last, "leave");
                     });
    QObject::connect(
        &model, &Model::rowsMoved, &m_context,
        [this](const QModelIndex& parent, int first, int last, const QModelIndex& to, int row) {
          record(parent, first, last, "move before " + nameOf(to) + "row " + std::to_string(row));
        });
    QObject::connect(&model, &Model::dataChanged, &m_context,
                     [this](const QModelIndex& first, const QModelIndex& last) {
                       record(first.parent(), first.row(), last.row(), "change");
                     });
    QObject::connect(&model, &Model::layoutChanged, &m_context,
                     [this](const QList<QPersistentModelIndex>& parents) {
                       std::string text;
                       for (const auto& parent : parents)
                         text += nameOf(parent);
                       m_texts.push_back(text + "layout");
                     });
    QObject::connect(&model, &Model::modelReset, &m_context,
                     [this] { m_texts.push_back("reset"); });
  }

  const std::vector<std::string>& texts() const { return m_texts; }

private:
  static std::string nameOf(const QModelIndex& parent)
  {
    return parent.isValid() ? parent.data().toString().toStdString() + ": " : "";
  }

  void record(const QModelIndex& parent, int first, int last, const std::string& what)
  {
    m_texts.push_back(nameOf(parent) + "rows " + std::to_string(first) + " to " +
                      std::to_string(last) + ' ' + what);
  }

  QObject m_context;
  std::vector<std::string> m_texts;
};

}
