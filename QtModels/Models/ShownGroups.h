// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListEdit.h"
#include "GroupHosting/Providers/TKGroupProvider.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
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

/// Takes entries out of a list; the others stay in their order.
/// @param pieces  the runs that stay, ascending
template <class Entry>
void keepOnly(std::vector<Entry>& list, const GroupLists::Pieces& pieces)
{
  auto end = list.begin();
  for (const auto& run : pieces.runs()) {
    const auto first = at(list, run.position);
    const auto last = at(list, run.position + run.count);
    end = first == end ? last : std::move(first, last, end);
  }
  list.erase(end, list.end());
}

/// A list of entries that are moved out of another one, and of those that come.
/// @param pieces  runs of the other list; what comes is at nowhere
/// @param coming  in their order
template <class Entry>
std::vector<Entry>
rebuilt(std::vector<Entry>& list, const GroupLists::Pieces& pieces, std::vector<Entry>& coming)
{
  std::vector<Entry> result;
  result.reserve(pieces.size());
  const auto append = [&result](auto first, std::size_t count) {
    const auto last = first + static_cast<std::ptrdiff_t>(count);
    result.insert(result.end(), std::make_move_iterator(first), std::make_move_iterator(last));
    return last;
  };
  auto next = coming.begin();
  for (const auto& run : pieces.runs()) {
    if (run.position == GroupLists::nowhere)
      next = append(next, run.count);
    else
      append(at(list, run.position), run.count);
  }
  return result;
}

}
