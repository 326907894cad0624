// SPDX-License-Identifier: MIT
#include "Growth.h"

#include <algorithm>
#include <random>
#include <thread>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace Tarvik::Growth {
namespace {

/// Every so many elements of the whole list, beginning with an offset.
std::vector<Place> scattered(const Size& size, std::size_t distance, std::size_t offset)
{
  std::vector<Place> places;
  places.reserve(size.groups * size.members / distance);
  for (auto i = offset; i < size.groups * size.members; i += distance)
    places.push_back({i / size.members, i % size.members});
  std::shuffle(places.begin(), places.end(), std::minstd_rand(1)); // NOLINT: always the same
  return places;
}

std::vector<Place> allOf(std::size_t group, const Size& size)
{
  std::vector<Place> places;
  places.reserve(size.members);
  for (std::size_t i = 0; i < size.members; ++i)
    places.push_back({group, i});
  return places;
}

/// How many bytes of the heap are in use; only differences mean something. 0 where that is unknown.
std::size_t usedHeap()
{
#if defined(__GLIBC__)
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
#else
  return 0;
#endif
}

/// Each thread has a cache of freed blocks, which count as used until the thread ends.
void inAThread(const std::function<void()>& action)
{
  std::thread(action).join();
}

}

std::string nameOf(Selection selection)
{
  switch (selection) {
  case Selection::One:
    return "one";
  case Selection::Thousand:
    return "1000";
  case Selection::Tenth:
    return "tenth";
  case Selection::WholeGroup:
    return "group";
  }
  return {};
}

std::vector<Size> sizesFor(Selection selection)
{
  if (selection == Selection::WholeGroup)
    return {{10, 100}, {10, 1000}, {10, 10000}, {10, 100000}};
  std::vector<Size> sizes = {{10, 100}, {100, 100}, {100, 1000}, {1000, 1000}};
  if (selection == Selection::Thousand)
    sizes.erase(sizes.begin()); // it has no more than a thousand
  return sizes;
}

Size sizeOf(const benchmark::State& state)
{
  return {static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1))};
}

std::vector<Place> placesOf(Selection selection, const Size& size, std::size_t round)
{
  const auto offset = round + 1; // the middle of a group is divisible by ten
  switch (selection) {
  case Selection::One:
    return {{size.groups / 2, size.members / 2 + offset}};
  case Selection::Thousand:
    return scattered(size, size.groups * size.members / 1000, offset);
  case Selection::Tenth:
    return scattered(size, 10, offset);
  case Selection::WholeGroup:
    return allOf(round, size);
  }
  return {};
}

std::vector<std::size_t> selectedGroups(Selection selection, const Size& size)
{
  if (selection == Selection::One)
    return {size.groups / 2};
  std::vector<std::size_t> groups;
  for (std::size_t i = 0; i < size.groups; i += 10)
    groups.push_back(i);
  return groups;
}

void addBenchmark(const std::string& name, const Function& function, const std::vector<Size>& sizes)
{
  auto* const added = benchmark::RegisterBenchmark(name.c_str(), function);
  for (const auto& size : sizes)
    added->Args({static_cast<std::int64_t>(size.groups), static_cast<std::int64_t>(size.members)});
  added->Unit(benchmark::kMicrosecond);
}

void addSlowBenchmark(const std::string& name, const Function& function, const Size& size)
{
  auto* const added = benchmark::RegisterBenchmark(name.c_str(), function);
  added->Args({static_cast<std::int64_t>(size.groups), static_cast<std::int64_t>(size.members)});
  added->Unit(benchmark::kMicrosecond)->Iterations(1)->Repetitions(1);
}

void reportKept(benchmark::State& state,
                std::size_t count,
                const std::function<void(std::size_t round)>& keepOne)
{
  inAThread([&keepOne] { keepOne(0); });
  const auto before = usedHeap();
  for (auto _ : state) {
    inAThread([&keepOne, count] {
      for (std::size_t round = 1; round <= count; ++round)
        keepOne(round);
    });
  }
  state.counters["bytes"] = static_cast<double>(usedHeap() - before) / static_cast<double>(count);
}

}
