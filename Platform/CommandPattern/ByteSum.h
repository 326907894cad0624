// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>

namespace Tarvik {

/// A sum of sizes that stays right however large the sizes are. Not for hosts.
class ByteSum {
public:
  /// Adds a size, however large.
  void add(std::size_t size) noexcept
  {
    m_low += size;
    m_carries += m_low < size ? 1 : 0;
  }

  /// @param size  one that has been added
  void subtract(std::size_t size) noexcept
  {
    m_carries -= m_low < size ? 1 : 0;
    m_low -= size;
  }

  /// The sum, or the greatest `std::size_t` if the sum is greater than that.
  std::size_t value() const noexcept
  {
    return m_carries == 0 ? m_low : (std::numeric_limits<std::size_t>::max)();
  }

private:
  std::size_t m_low = 0;
  std::size_t m_carries = 0; ///< how often m_low went round
};

}
