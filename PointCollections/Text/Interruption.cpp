// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Interruption.h"

#include <atomic>

namespace Tarvik::PointCollections {
namespace {

std::atomic<bool> isPossible = false;
std::atomic<bool> isWanted = false;
static_assert(std::atomic<bool>::is_always_lock_free); // or a signal handler could not set it

}

Interruptible::Interruptible() noexcept
{
  isWanted = false;
  isPossible = true;
}

Interruptible::~Interruptible()
{
  isPossible = false;
}

void Interruptible::request() noexcept
{
  isWanted = true;
}

bool Interruptible::isRequested() noexcept
{
  return isWanted.load(std::memory_order_relaxed) && isPossible;
}

void Interruptible::forget() noexcept
{
  isWanted = false;
}

Uninterruptible::Uninterruptible() noexcept : m_wasPossible(isPossible.exchange(false)) {}

Uninterruptible::~Uninterruptible()
{
  isPossible = m_wasPossible;
}

void checkInterruption()
{
  if (!Interruptible::isRequested())
    return;
  isPossible = false;
  throw Interrupted();
}

}
