// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupsChange.h"
#include "GroupHosting/Providers/GroupsSubscription.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Tarvik::GroupLists {

/// Tells listeners about changes, each listener about one after the other. Not for hosts.
template <class T>
class ChangeTelling {
public:
  using Listener = std::function<void(const GroupsChange<T>&)>;

  /// Changes that are not told yet.
  using Changes = std::list<GroupsChange<T>>;

  /// @throws std::invalid_argument when the listener is empty
  GroupsSubscription<T> subscribe(Listener listener);

  /// Whether anybody listens.
  bool hasListeners() const;

  /// Calls all listeners, except those who came after the change. A change that is made by a
  /// listener is told when all listeners know the one before it.
  void tell(Changes changes) noexcept;

  /// The first exception of a listener since the last time, or null.
  std::exception_ptr takeFailure() noexcept { return std::exchange(m_firstFailure, nullptr); }

private:
  void tellNext() noexcept;

  std::vector<std::weak_ptr<Subscriber<T>>> m_subscribers;
  Changes m_untold;
  std::uint64_t m_numberOfChanges = 0;
  bool m_isTelling = false;
  std::exception_ptr m_firstFailure;
};

template <class T>
GroupsSubscription<T> ChangeTelling<T>::subscribe(Listener listener)
{
  if (!listener)
    throw std::invalid_argument("a listener of a provider must not be empty");
  if (!m_isTelling)
    std::erase_if(m_subscribers, [](const auto& subscriber) { return subscriber.expired(); });
  auto subscriber = std::make_shared<Subscriber<T>>();
  subscriber->listener = std::move(listener);
  subscriber->changesBefore = m_numberOfChanges;
  m_subscribers.push_back(subscriber);
  return GroupsSubscription<T>(std::move(subscriber));
}

template <class T>
bool ChangeTelling<T>::hasListeners() const
{
  return std::any_of(m_subscribers.begin(), m_subscribers.end(), [](const auto& each) {
    const auto subscriber = each.lock(); // while it is told, one that has ended still exists
    return subscriber && subscriber->isSubscribed;
  });
}

template <class T>
void ChangeTelling<T>::tell(Changes changes) noexcept
{
  m_numberOfChanges += changes.size();
  m_untold.splice(m_untold.end(), changes);
  if (m_isTelling)
    return;
  m_isTelling = true;
  while (!m_untold.empty())
    tellNext();
  m_isTelling = false;
}

template <class T>
void ChangeTelling<T>::tellNext() noexcept
{
  const auto number = m_numberOfChanges - m_untold.size() + 1;
  Changes change;
  change.splice(change.begin(), m_untold, m_untold.begin());
  for (std::size_t i = 0; i < m_subscribers.size(); ++i) { // a listener may subscribe others
    const auto subscriber = m_subscribers[i].lock();       // a share: it may unsubscribe itself
    if (!subscriber || !subscriber->isSubscribed || subscriber->changesBefore >= number)
      continue;
    try {
      subscriber->listener(change.front());
    } catch (...) {
      if (!m_firstFailure)
        m_firstFailure = std::current_exception();
    }
  }
}

}
