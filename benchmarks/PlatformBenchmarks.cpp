// SPDX-License-Identifier: MIT
// The operations of the platform that have to be fast, compared with the plainest code for the
// same.

#include "GeneralServices/SimpleNameSetProvider.h"
#include "GeneralServices/StringUtility.h"
#include "GeneralServices/UniqueNameProvider.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
void construct(benchmark::State& state)
{
  for (auto _ : state)
    benchmark::DoNotOptimize(T());
}
BENCHMARK(construct<Identifier>)->Name("construct/Identifier");
BENCHMARK(construct<GUIdentifier>)->Name("construct/GUIdentifier");

/// As loading does.
template <class T>
void constructMany(benchmark::State& state)
{
  constexpr std::size_t count = 1'000'000;
  std::vector<T> identifiers;
  identifiers.reserve(count);
  for (auto _ : state) {
    identifiers.clear();
    identifiers.resize(count);
    benchmark::DoNotOptimize(identifiers.data());
  }
}
BENCHMARK(constructMany<Identifier>)
    ->Name("construct a million/Identifier")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(constructMany<GUIdentifier>)
    ->Name("construct a million/GUIdentifier")
    ->Unit(benchmark::kMicrosecond);

constexpr std::size_t scanned = 10'000;

template <class T>
void scanForAbsent(benchmark::State& state)
{
  const std::vector<T> identifiers(scanned);
  const T absent;
  for (auto _ : state)
    benchmark::DoNotOptimize(std::find(identifiers.begin(), identifiers.end(), absent));
}
BENCHMARK(scanForAbsent<Identifier>)->Name("scan 10000 for an absent one/Identifier");
BENCHMARK(scanForAbsent<GUIdentifier>)->Name("scan 10000 for an absent one/GUIdentifier");

using Words = std::pair<std::uint64_t, std::uint64_t>;

/// The words of the identifiers, the lower one first.
void scanPlainWords(benchmark::State& state)
{
  const std::vector<Identifier> identifiers(scanned);
  std::vector<Words> words(scanned);
  std::transform(identifiers.begin(), identifiers.end(), words.begin(),
                 [](const Identifier& id) { return Words(id.bits().low, id.bits().high); });
  const Identifier other;
  const Words absent(other.bits().low, other.bits().high);
  for (auto _ : state)
    benchmark::DoNotOptimize(std::find(words.begin(), words.end(), absent));
}
BENCHMARK(scanPlainWords)->Name("scan 10000 for an absent one/plain words");

void lowerAName(benchmark::State& state)
{
  const std::string name(static_cast<std::size_t>(state.range(0)), 'N');
  for (auto _ : state)
    benchmark::DoNotOptimize(StringUtility::toLower(name));
}
BENCHMARK(lowerAName)->Name("toLower")->Arg(12)->Arg(40)->Arg(1000);

void copyAName(benchmark::State& state)
{
  const std::string name(static_cast<std::size_t>(state.range(0)), 'N');
  for (auto _ : state) {
    std::string copy(name);
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(copyAName)->Name("toLower: a bare copy")->Arg(12)->Arg(40)->Arg(1000);

SimpleNameSetProvider takenNames(std::int64_t count)
{
  SimpleNameSetProvider names;
  names.addName("Group");
  for (std::int64_t number = 2; number <= count; ++number)
    names.addName("Group " + std::to_string(number));
  return names;
}

void findAUniqueName(benchmark::State& state)
{
  const auto names = takenNames(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(UniqueNameProvider::createUniqueName("Group", names));
}
BENCHMARK(findAUniqueName)
    ->Name("createUniqueName")
    ->Arg(100)
    ->Arg(100'000)
    ->Unit(benchmark::kMicrosecond);

void collectNames(benchmark::State& state)
{
  for (auto _ : state)
    benchmark::DoNotOptimize(takenNames(state.range(0)));
}
BENCHMARK(collectNames)
    ->Name("createUniqueName: filling the set")
    ->Arg(100)
    ->Arg(100'000)
    ->Unit(benchmark::kMicrosecond);

}
}

BENCHMARK_MAIN();
