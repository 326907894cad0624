// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace Tarvik {

/// Those who want to be told of the changes of one thing. One thread at a time.
class TKM_COMMANDPATTERN_API ChangeListeners {
public:
  /// What is called after a change.
  using Listener = std::function<void()>;

private:
  /// Shared by a subscription and, while its listener is being told, by the list.
  struct Subscriber {
    Listener listener;
    bool isSubscribed = true;
  };

public:
  /// Keeps a listener subscribed for as long as it lives; may outlive the list. It may be destroyed
  /// at any time, also while its listener is being told.
  class TKM_COMMANDPATTERN_API Subscription {
  public:
    /// A subscription to nothing.
    Subscription() noexcept;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    /// Takes the subscription over; the other is one to nothing then.
    Subscription(Subscription&& other) noexcept;

    /// Ends the subscription that it had, and takes over the other.
    Subscription& operator=(Subscription&& other) noexcept;

    /// Ends the subscription.
    ~Subscription();

    /// Ends the subscription now. Does nothing when it has ended.
    void cancel() noexcept;

  private:
    friend class ChangeListeners;
    explicit Subscription(std::shared_ptr<Subscriber> subscriber) noexcept;

    std::shared_ptr<Subscriber> m_subscriber;
  };

  ChangeListeners();
  ChangeListeners(const ChangeListeners&) = delete;
  ChangeListeners& operator=(const ChangeListeners&) = delete;
  ~ChangeListeners();

  /// Subscribes a listener, which is told from the next change on.
  /// @param listener  not empty
  [[nodiscard]] Subscription subscribe(Listener listener);

  /// Tells all listeners, which may subscribe and unsubscribe meanwhile, and make changes of which
  /// all are told in their turn, but must not destroy this list. When listeners throw, all others
  /// are still told, and the first exception goes on.
  void tell();

  /// Tells all listeners while another exception is under way, which is the one to be seen.
  void tellQuietly() noexcept;

private:
  void forgetCancelled();

  std::vector<std::weak_ptr<Subscriber>> m_subscribers;
  std::size_t m_tellingDepth = 0;
};

}
