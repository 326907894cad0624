// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

namespace Tarvik {

/// A host's own kind of element identifier, which calls a function each time it is copied.
class WatchedIdentifier {
public:
  WatchedIdentifier() : m_number(++s_lastNumber) {}
  WatchedIdentifier(const WatchedIdentifier& other) : m_number(other.m_number) { noteCopy(); }
  WatchedIdentifier& operator=(const WatchedIdentifier& other)
  {
    m_number = other.m_number;
    noteCopy();
    return *this;
  }
  ~WatchedIdentifier() = default;

  bool isValid() const { return m_number != 0; }
  static const WatchedIdentifier& getInvalidId()
  {
    static const WatchedIdentifier invalid(0);
    return invalid;
  }
  static void serialization_register(void*) {} // these groups are not saved
  friend bool operator==(const WatchedIdentifier& a, const WatchedIdentifier& b)
  {
    return a.m_number == b.m_number;
  }

private:
  friend class CopyWatch;

  explicit WatchedIdentifier(int number) : m_number(number) {}

  static void noteCopy()
  {
    if (s_onCopy)
      s_onCopy();
  }

  static inline int s_lastNumber = 0;
  static inline std::function<void()> s_onCopy;
  int m_number;
};

/// Calls the function for each copy while it lives. One at a time.
class CopyWatch {
public:
  /// @param onCopy  may throw: the copy then fails
  explicit CopyWatch(std::function<void()> onCopy)
  {
    WatchedIdentifier::s_onCopy = std::move(onCopy);
  }
  CopyWatch(const CopyWatch&) = delete;
  CopyWatch& operator=(const CopyWatch&) = delete;
  ~CopyWatch() { WatchedIdentifier::s_onCopy = {}; }
};

}
