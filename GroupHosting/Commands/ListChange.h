// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Commands/GroupListFingerprint.h"
#include "GroupHosting/Differences/EditedGroups.h"
#include "GroupHosting/Differences/GroupListEdit.h"
#include "GroupHosting/Providers/EditableProvider.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"

#include <cstddef>
#include <stdexcept>
#include <vector>

namespace Tarvik::GroupLists {

/// A call of setGroups(): what is different between the lists before and after it, and what tells
/// these lists apart from all others. Not for hosts.
template <class T>
class ListChange {
public:
  ListChange(const std::vector<TKGroup<T>>& before, const std::vector<TKGroup<T>>& after);

  bool isEmpty() const { return GroupLists::isEmpty(m_edit); }

  /// The memory that it takes, without the object itself.
  std::size_t bytes() const { return bytesOf(m_edit); }

  /// Hands the provider the list after (or the list before, when going backward). A provider that
  /// can edit its list does that instead.
  /// @throws std::runtime_error when the provider's list is not the other one of the two
  void repeat(Direction direction, TKGroupProviderInterface<T>& provider) const;

private:
  bool editList(Direction direction, EditableProvider<T>& provider) const;
  bool replaceList(Direction direction, TKGroupProviderInterface<T>& provider) const;
  bool isExpected(const GroupListFingerprint& found, Direction direction) const
  {
    return found == (direction == Direction::Forward ? m_before : m_after);
  }

  GroupListFingerprint m_before;
  GroupListFingerprint m_after;
  GroupListEdit<T> m_edit; ///< the last field: finding it sets the other two
};

/// Adds the groups at these positions.
template <class T>
void add(GroupListFingerprint& fingerprint,
         const std::vector<Run>& runs,
         const std::vector<TKGroup<T>>& groups)
{
  for (const auto& run : runs) {
    for (auto i = run.position; i < run.position + run.count; ++i)
      fingerprint.add(i, fingerprintOf(groups[i]));
  }
}

/// Hashes each group just after it was compared, when it is in the cache, and one that does not
/// change only once.
template <class T>
ListChange<T>::ListChange(const std::vector<TKGroup<T>>& before,
                          const std::vector<TKGroup<T>>& after)
    : m_edit(editBetween(before, after, [&](std::size_t from, std::size_t to, bool changes) {
        const auto fingerprint = fingerprintOf(before[from]);
        m_before.add(from, fingerprint);
        m_after.add(to, changes ? fingerprintOf(after[to]) : fingerprint);
      }))
{
  add(m_before, m_edit.groups.removed, before);
  add(m_after, m_edit.groups.inserted, after);
}

template <class T>
void ListChange<T>::repeat(Direction direction, TKGroupProviderInterface<T>& provider) const
{
  auto* const editable = dynamic_cast<EditableProvider<T>*>(&provider);
  const bool isDone =
      editable != nullptr ? editList(direction, *editable) : replaceList(direction, provider);
  if (!isDone)
    throw std::runtime_error(
        "CompactTKGroupCmd: the groups are not as this command left them; something has changed "
        "them without the history. They stay as they are. Clear the history, since its commands "
        "do not fit them any more");
}

/// @return false when the provider's list is not the expected one
template <class T>
bool ListChange<T>::editList(Direction direction, EditableProvider<T>& provider) const
{
  GroupListFingerprint found;
  const auto& groups = provider.getGroups();
  for (std::size_t i = 0; i < groups.size(); ++i)
    found.add(i, fingerprintOf(groups[i]));
  return isExpected(found, direction) && provider.edit(m_edit, direction);
}

/// @return false when the provider's list is not the expected one
template <class T>
bool ListChange<T>::replaceList(Direction direction, TKGroupProviderInterface<T>& provider) const
{
  GroupListFingerprint found;
  const auto list = applied(m_edit, direction, provider.getGroups(),
                            [&found](std::size_t position, const TKGroup<T>& group) {
                              found.add(position, fingerprintOf(group));
                            });
  if (!list || !isExpected(found, direction))
    return false;
  provider.setGroups(*list);
  return true;
}

}
