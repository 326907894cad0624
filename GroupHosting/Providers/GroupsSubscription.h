// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/GroupHostingExport.h"
#include "GroupHosting/Providers/GroupsChange.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace Tarvik {

namespace GroupLists {

template <class T>
class ChangeTelling;

/// A listener. Owned by its subscription; while it runs, also by what tells it.
template <class T>
struct Subscriber {
  std::function<void(const GroupsChange<T>&)> listener;
  std::uint64_t changesBefore = 0; ///< the changes up to this one are not told
  bool isSubscribed = true;
};

}

/// Keeps a listener subscribed to a provider until it is destroyed. May outlive the provider. It
/// may be destroyed at any time, even while its listener runs.
template <class T>
class GroupsSubscription {
public:
  GroupsSubscription() noexcept; ///< subscribed to nothing
  GroupsSubscription(const GroupsSubscription&) = delete;
  GroupsSubscription& operator=(const GroupsSubscription&) = delete;

  GroupsSubscription(GroupsSubscription&& other) noexcept;

  /// Ends this subscription first.
  GroupsSubscription& operator=(GroupsSubscription&& other) noexcept;
  ~GroupsSubscription();

  /// Ends the subscription. Does nothing when it has ended.
  void cancel() noexcept;

private:
  friend class GroupLists::ChangeTelling<T>;
  explicit GroupsSubscription(std::shared_ptr<GroupLists::Subscriber<T>> subscriber) noexcept;

  std::shared_ptr<GroupLists::Subscriber<T>> m_subscriber;
};

template <class T>
GroupsSubscription<T>::GroupsSubscription() noexcept = default;

template <class T>
GroupsSubscription<T>::GroupsSubscription(
    std::shared_ptr<GroupLists::Subscriber<T>> subscriber) noexcept
    : m_subscriber(std::move(subscriber))
{}

template <class T>
GroupsSubscription<T>::GroupsSubscription(GroupsSubscription&& other) noexcept = default;

template <class T>
GroupsSubscription<T>& GroupsSubscription<T>::operator=(GroupsSubscription&& other) noexcept
{
  if (this != &other) {
    cancel();
    m_subscriber = std::move(other.m_subscriber);
  }
  return *this;
}

template <class T>
GroupsSubscription<T>::~GroupsSubscription()
{
  cancel();
}

template <class T>
void GroupsSubscription<T>::cancel() noexcept
{
  if (m_subscriber)
    m_subscriber->isSubscribed = false; // it may be told at the moment
  m_subscriber.reset();
}

extern template class TKM_GROUPHOSTING_DECLARE GroupsSubscription<Identifier>;
extern template class TKM_GROUPHOSTING_DECLARE GroupsSubscription<GUIdentifier>;

}
