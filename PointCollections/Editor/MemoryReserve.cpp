// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/MemoryReserve.h"

#include <new>

namespace Tarvik::PointCollections {

bool MemoryReserve::hold(std::size_t bytes) noexcept
{
  if (bytes <= m_size)
    return true;
  const std::size_t before = m_size;
  release(); // first: there may not be room for both
  if (allocate(bytes))
    return true;
  allocate(before);
  return false;
}

void MemoryReserve::release() noexcept
{
  m_memory.reset();
  m_size = 0;
}

bool MemoryReserve::allocate(std::size_t bytes) noexcept
{
  if (bytes == 0)
    return true;
  m_memory.reset(new (std::nothrow) std::byte[bytes]);
  m_size = m_memory ? bytes : 0;
  return m_memory != nullptr;
}

}
