// SPDX-License-Identifier: MIT
#include "CommandPattern/ChangeListeners.h"

#include <exception>
#include <utility>

namespace Tarvik {

ChangeListeners::Subscription::Subscription() noexcept = default;

ChangeListeners::Subscription::Subscription(std::shared_ptr<Subscriber> subscriber) noexcept
    : m_subscriber(std::move(subscriber))
{}

ChangeListeners::Subscription::Subscription(Subscription&& other) noexcept = default;

ChangeListeners::Subscription&
ChangeListeners::Subscription::operator=(Subscription&& other) noexcept
{
  if (this != &other) {
    cancel();
    m_subscriber = std::move(other.m_subscriber);
  }
  return *this;
}

ChangeListeners::Subscription::~Subscription()
{
  cancel();
}

void ChangeListeners::Subscription::cancel() noexcept
{
  if (m_subscriber)
    m_subscriber->isSubscribed = false; // tell() may own it as well
  m_subscriber.reset();
}

ChangeListeners::ChangeListeners() = default;

ChangeListeners::~ChangeListeners() = default;

ChangeListeners::Subscription ChangeListeners::subscribe(Listener listener)
{
  if (m_tellingDepth == 0)
    forgetCancelled();
  auto subscriber = std::make_shared<Subscriber>();
  subscriber->listener = std::move(listener);
  m_subscribers.push_back(subscriber);
  return Subscription(std::move(subscriber));
}

void ChangeListeners::tell()
{
  std::exception_ptr firstFailure;
  ++m_tellingDepth;
  const auto subscribedBefore = m_subscribers.size(); // a listener may subscribe others
  for (std::size_t i = 0; i < subscribedBefore; ++i) {
    const auto subscriber = m_subscribers[i].lock(); // a share: a listener may unsubscribe itself
    try {
      if (subscriber && subscriber->isSubscribed)
        subscriber->listener();
    } catch (...) {
      if (!firstFailure)
        firstFailure = std::current_exception();
    }
  }
  if (--m_tellingDepth == 0)
    forgetCancelled();
  if (firstFailure)
    std::rethrow_exception(firstFailure);
}

void ChangeListeners::tellQuietly() noexcept
{
  try {
    tell();
  } catch (...) { // NOLINT(bugprone-empty-catch): see the header
  }
}

void ChangeListeners::forgetCancelled()
{
  std::erase_if(m_subscribers, [](const auto& subscriber) { return subscriber.expired(); });
}

}
