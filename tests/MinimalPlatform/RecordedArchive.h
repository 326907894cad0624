// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <variant>

namespace Tarvik {

/// Opens a frame. The class hash is the next value.
struct FrameStart {
  unsigned int marker; ///< with which a reader leaves the frame
  friend bool operator==(const FrameStart&, const FrameStart&) = default;
};

/// An archive of the minimal platform: values in the order in which they were written. A test may
/// add its own, and make a call fail.
struct RecordedArchive {
  using Number = unsigned long long; ///< of an identifier
  using Value = std::variant<FrameStart, unsigned int, Number, std::string>;

  std::deque<Value> values{}; ///< reading takes them from the front
  std::uint64_t position = 0;
  std::map<unsigned int, BaseClassRegister> classTable{};
  std::size_t callsUntilFailure = std::numeric_limits<std::size_t>::max();

  void write(const Value& value, std::size_t size)
  {
    values.push_back(value);
    position += size;
  }

  template <class T>
  T read()
  {
    auto value = std::get<T>(values.at(0));
    values.pop_front();
    return value;
  }

  /// Call this first in every operation that may fail.
  void mayFail()
  {
    if (callsUntilFailure-- == 0)
      throw std::runtime_error("the archive fails, as the test asked");
  }
};

}
