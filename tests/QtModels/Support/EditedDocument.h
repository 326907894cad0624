// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "GroupHosting/Support/TestProvider.h"
#include "QtModels/Editing/GroupEditor.h"
#include "QtModels/Editing/GroupStep.h"
#include "QtModels/Models/GroupItemModel.h"

#include <QtCore/QModelIndex>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Puts elements of a provider next to another one, in the provider's order.
template <class T>
class OrderElementsCmd : public CommandBase {
public:
  OrderElementsCmd(TKGroupProvider<T>& provider, T target, std::vector<T> moved, bool insertBefore)
      : CommandBase("Order Elements"), m_provider(provider), m_before(provider.elements())
  {
    for (const T& element : m_before) {
      if (element == target && insertBefore)
        m_after.insert(m_after.end(), moved.begin(), moved.end());
      if (std::find(moved.begin(), moved.end(), element) == moved.end())
        m_after.push_back(element);
      if (element == target && !insertBefore)
        m_after.insert(m_after.end(), moved.begin(), moved.end());
    }
  }

  void execute() override { redo(); }
  void undo() override { m_provider.setElements(m_before); }
  void redo() override { m_provider.setElements(m_after); }

private:
  TKGroupProvider<T>& m_provider;
  std::vector<T> m_before;
  std::vector<T> m_after;
};

template <class T>
class OrderedProvider : public TestProvider<T> {
public:
  std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) override
  {
    return std::make_shared<OrderElementsCmd<T>>(*this, target, elements, insertBefore);
  }
};

/// A document that a user edits, written as a text: "A[xy] B[] z" is a group A with the elements x
/// and y, an empty group B, and the ungrouped element z.
template <class T, class Provider = OrderedProvider<T>>
class EditedDocument {
public:
  explicit EditedDocument(const std::string& text)
  {
    std::vector<T> elements;
    std::vector<std::pair<T, std::string>> names;
    std::vector<TKGroup<T>> groups;
    bool isInGroup = false;
    for (const char letter : text) {
      if (letter == '[' || letter == ']') {
        isInGroup = letter == '[';
      } else if (letter >= 'A' && letter <= 'Z') {
        groups.emplace_back(std::string(1, letter));
      } else if (letter != ' ') {
        const auto found = std::find_if(names.begin(), names.end(), [letter](const auto& named) {
          return named.second.front() == letter;
        });
        const T element = found != names.end() ? found->first : T();
        if (found == names.end()) {
          elements.push_back(element);
          names.emplace_back(element, std::string(1, letter));
        }
        if (isInGroup)
          groups.back().addGroupMember(element);
      }
    }
    provider->nameElements(names);
    provider->setElements(elements);
    provider->setGroups(groups);
  }

  /// The present state, in the same form.
  std::string text() const
  {
    std::string result;
    for (const auto& group : provider->getGroups())
      result += group.getName() + '[' + namesOf(group.getGroupMembers()) + "] ";
    return result + namesOf(provider->ungroupedElements());
  }

  T element(char name) const
  {
    for (const T& each : provider->elements()) {
      if (provider->getElementName(each) == std::string(1, name))
        return each;
    }
    throw std::invalid_argument(std::string("there is no element ") + name);
  }

  std::vector<T> elements(const std::string& names) const
  {
    std::vector<T> result;
    for (const char name : names)
      result.push_back(element(name));
    return result;
  }

  Identifier group(char name) const
  {
    for (const auto& each : provider->getGroups()) {
      if (each.getName() == std::string(1, name))
        return each.getId();
    }
    throw std::invalid_argument(std::string("there is no group ") + name);
  }

  std::vector<Identifier> groups(const std::string& names) const
  {
    std::vector<Identifier> result;
    for (const char name : names)
      result.push_back(group(name));
    return result;
  }

  /// The row of a group or an element; of its first holder's row if it has several.
  QModelIndex row(char name) const { return rowBelow(QModelIndex(), QChar(name)); }

  QModelIndexList rows(const std::string& names) const
  {
    QModelIndexList result;
    for (const char name : names)
      result.append(row(name));
    return result;
  }

  /// The descriptions of the steps that can be undone, oldest first.
  std::vector<std::string> steps() const
  {
    std::vector<std::string> result;
    for (std::size_t i = 0; i < history.position(); ++i)
      result.push_back(history.entries()[i]->getDescription());
    return result;
  }

  std::shared_ptr<Provider> provider = std::make_shared<Provider>();
  CommandHistory history;
  GroupItemModel<T> model{provider};
  GroupEditor<T>& editor = *new GroupEditor<T>(model, handlerIn<T>(history, provider));

private:
  std::string namesOf(const std::vector<T>& elements) const
  {
    std::string names;
    for (const T& each : elements)
      names += provider->getElementName(each);
    return names;
  }

  QModelIndex rowBelow(const QModelIndex& parent, QChar name) const
  {
    for (int i = 0; i < model.rowCount(parent); ++i) {
      const auto each = model.index(i, 0, parent);
      if (each.data().toString() == name)
        return each;
      if (const auto below = rowBelow(each, name); below.isValid())
        return below;
    }
    return {};
  }
};

using Texts = std::vector<std::string>;

}
