// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// The lists of a provider as views know them, and the edits of these.
namespace Tarvik::ShownLists {

/// A group as views know it. Its address stays the same for as long as it is shown.
template <class T>
struct ShownGroup {
  Identifier id;
  std::string name;
  std::vector<T> members;
  int row = 0;
};

/// What views know: groups and ungrouped elements.
template <class T>
struct ShownGroups {
  using Group = ShownGroup<T>;
  using Groups = std::vector<std::unique_ptr<Group>>;

  Groups groups;
  std::vector<T> ungrouped;

  /// Gives the groups their rows, from this one on.
  void number(std::size_t first)
  {
    for (auto i = first; i < groups.size(); ++i)
      groups[i]->row = static_cast<int>(i);
  }
};

/// Groups that are not numbered yet.
template <class T>
typename ShownGroups<T>::Groups shown(const std::vector<TKGroup<T>>& groups)
{
  typename ShownGroups<T>::Groups result;
  result.reserve(groups.size());
  for (const auto& group : groups)
    result.push_back(std::make_unique<ShownGroup<T>>(
        ShownGroup<T>{group.getId(), group.getName(), group.getGroupMembers()}));
  return result;
}

/// What a provider has at the moment.
template <class T>
ShownGroups<T> shown(TKGroupProvider<T>& provider)
{
  ShownGroups<T> result{shown(provider.getGroups()), provider.ungroupedElements()};
  result.number(0);
  return result;
}

template <class Entry>
auto at(std::vector<Entry>& list, std::size_t position)
{
  return list.begin() + static_cast<std::ptrdiff_t>(position);
}

/// Takes memory for more entries, so that insert() cannot fail. Less often than at every call.
template <class Entry>
void makeRoom(std::vector<Entry>& list, std::size_t more)
{
  if (list.capacity() - list.size() < more)
    list.reserve((std::max)(list.size() + more, 2 * list.size()));
}

template <class Entry>
void insert(std::vector<Entry>& list, std::size_t position, std::vector<Entry> more)
{
  list.insert(at(list, position), std::make_move_iterator(more.begin()),
              std::make_move_iterator(more.end()));
}

template <class Entry>
void remove(std::vector<Entry>& list, std::size_t position, std::size_t count)
{
  list.erase(at(list, position), at(list, position + count));
}

/// @param to  position of the first of the entries, after the move
template <class Entry>
void move(std::vector<Entry>& list, std::size_t from, std::size_t count, std::size_t to)
{
  if (from < to)
    std::rotate(at(list, from), at(list, from + count), at(list, to + count));
  else
    std::rotate(at(list, to), at(list, from), at(list, from + count));
}

/// @param order  by new position: the old one
template <class Entry>
void reorder(std::vector<Entry>& list, const std::vector<std::uint32_t>& order)
{
  std::vector<Entry> reordered;
  reordered.reserve(order.size());
  for (const auto position : order)
    reordered.push_back(std::move(list[position]));
  list.swap(reordered);
}

}
