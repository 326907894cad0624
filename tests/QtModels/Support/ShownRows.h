// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Support/TestProvider.h"
#include "QtModels/Models/GroupItemModel.h"

#include <QtCore/QAbstractItemModel>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Tarvik {

/// Calls `visit(index)` for all rows of a model, from the top to the bottom.
template <class Visit>
void forEachRow(const QAbstractItemModel& model, const Visit& visit, const QModelIndex& parent = {})
{
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const auto index = model.index(row, 0, parent);
    visit(index);
    forEachRow(model, visit, index);
  }
}

/// All rows of a model in words: `{"A", "- x", "- y", "z"}`.
inline std::vector<std::string> textsOf(const QAbstractItemModel& model)
{
  std::vector<std::string> texts;
  forEachRow(model, [&](const QModelIndex& index) {
    const auto text = index.data().toString().toStdString();
    texts.push_back(index.parent().isValid() ? "- " + text : text);
  });
  return texts;
}

/// Expects that a model shows what a provider has, ids included.
template <class T>
void expectToShow(const GroupItemModel<T>& model, TKGroupProvider<T>& provider)
{
  const auto& groups = provider.getGroups();
  const auto& ungrouped = provider.ungroupedElements();
  ASSERT_EQ(static_cast<std::size_t>(model.rowCount()), groups.size() + ungrouped.size());
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const auto row = model.index(static_cast<int>(i), 0);
    ASSERT_EQ(model.groupIdAt(row), groups[i].getId());
    ASSERT_EQ(row.data().toString().toStdString(), groups[i].getName());
    std::vector<T> members;
    members.reserve(groups[i].getGroupMembers().size());
    for (int member = 0; member < model.rowCount(row); ++member)
      members.push_back(*model.elementAt(model.index(member, 0, row)));
    ASSERT_EQ(members, groups[i].getGroupMembers());
  }
  for (std::size_t i = 0; i < ungrouped.size(); ++i)
    ASSERT_EQ(*model.elementAt(model.index(static_cast<int>(groups.size() + i), 0)), ungrouped[i]);
}

}
