// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Progress.h"

#include <algorithm>
#include <atomic>

namespace Tarvik::PointCollections::Progress {
namespace {

constexpr int unknown = -1;
std::atomic<int> current = unknown;

}

void reset()
{
  current = unknown;
}

void tell(std::size_t done, std::size_t whole)
{
  constexpr double all = 100;
  const auto part = static_cast<double>(done) / static_cast<double>(whole);
  current.store(static_cast<int>(std::clamp(part * all, 0.0, all)), std::memory_order_relaxed);
}

std::optional<int> percent()
{
  const int value = current.load(std::memory_order_relaxed);
  return value == unknown ? std::nullopt : std::optional(value);
}

}
