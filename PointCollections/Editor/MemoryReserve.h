// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>

namespace Tarvik::PointCollections {

/// Memory that is held so that it can be let go when there is none left.
class MemoryReserve {
public:
  /// Holds at least so many bytes from now on. Does nothing if it does already.
  /// @return false if there is not enough memory; what was held stays held, unless even that fails
  bool hold(std::size_t bytes) noexcept;

  /// Lets go of all.
  void release() noexcept;

  /// How many bytes are held.
  std::size_t size() const noexcept { return m_size; }

private:
  bool allocate(std::size_t bytes) noexcept;

  std::unique_ptr<std::byte[]> m_memory; // NOLINT(*-avoid-c-arrays): not filled with zeros
  std::size_t m_size = 0;
};

}
