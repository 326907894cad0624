// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace Tarvik {

/// A list of functions to call after each change of an object. One thread at a time.
class TKM_COMMANDPATTERN_API ChangeListeners {
public:
  /// A function to call after a change.
  using Listener = std::function<void()>;

private:
  /// Owned by its subscription. While the listener runs, tell() owns it as well.
  struct Subscriber {
    Listener listener;
    bool isSubscribed = true;
  };

public:
  /// Keeps a listener subscribed until it is destroyed. May outlive the list. It may be destroyed
  /// at any time, even while its listener runs.
  class TKM_COMMANDPATTERN_API Subscription {
  public:
    Subscription() noexcept; ///< subscribed to nothing
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    Subscription(Subscription&& other) noexcept;

    /// Ends this subscription first.
    Subscription& operator=(Subscription&& other) noexcept;
    ~Subscription();

    /// Ends the subscription. Does nothing when it has ended.
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

  /// Adds a listener, to be called from the next tell() on.
  /// @param listener  not empty
  [[nodiscard]] Subscription subscribe(Listener listener);

  /// Calls all listeners. A listener may subscribe and unsubscribe, and may call tell() again; it
  /// must not destroy this list. When listeners throw, the others are still called, and the caller
  /// gets the first exception.
  void tell();

  /// Like tell(), but drops the listeners' exceptions. For use while another exception is handled.
  void tellQuietly() noexcept;

private:
  void forgetCancelled();

  std::vector<std::weak_ptr<Subscriber>> m_subscribers;
  std::size_t m_tellingDepth = 0;
};

}
