// SPDX-License-Identifier: MIT
// The cost of saving and loading a thousand groups of a thousand members, compared with two other
// ways to move the same bytes: cereal's binary archive, which sends each element through a stream
// as ours sends it through an entry, and a plain memcpy of the finished archive.
//
// Loading goes into objects that are kept from round to round, or into new ones. The heap recycles
// the memory of new ones, or gets it fresh from the system, as in a program that has just started;
// then the page faults cost more than everything else. Freeing memory is not measured.

#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/Crc32c.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <benchmark/benchmark.h>
#include <cereal/archives/binary.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace Tarvik {

/// What cereal needs for a class; it finds these functions in the class's namespace.
template <class Archive, ElementIdentifier T>
void save(Archive& archive, const T& identifier)
{
  archive(identifier.bits().high, identifier.bits().low);
}

template <class Archive, ElementIdentifier T>
void load(Archive& archive, T& identifier)
{
  IdentifierBits bits;
  archive(bits.high, bits.low);
  identifier = T(bits);
}

namespace {

constexpr std::size_t groupCount = 1000;
constexpr std::size_t memberCount = 1000;

template <class T>
using Groups = std::vector<TKGroup<T>>;

using Bytes = std::vector<std::byte>;

/// A group that cereal can fill: the id of a TKGroup cannot be set.
template <class T>
struct PlainGroup {
  std::string name;
  Identifier id;
  std::vector<T> members;

  template <class Archive>
  void serialize(Archive& archive)
  {
    archive(name, id, members);
  }
};

template <class T>
using PlainGroups = std::vector<PlainGroup<T>>;

template <class T>
Groups<T> makeGroups()
{
  Groups<T> groups;
  groups.reserve(groupCount);
  for (std::size_t i = 0; i < groupCount; ++i) {
    groups.emplace_back("Group " + std::to_string(i));
    groups.back().addGroupMembersAtIndex(std::vector<T>(memberCount), 0);
  }
  return groups;
}

template <class T>
PlainGroups<T> makePlainGroups()
{
  PlainGroups<T> groups;
  groups.reserve(groupCount);
  for (const auto& group : makeGroups<T>())
    groups.push_back({group.getName(), group.getId(), group.getGroupMembers()});
  return groups;
}

template <class T>
Bytes savedGroups()
{
  PersistenceArchiver archive;
  archive << makeGroups<T>();
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

/// The number of bytes of names, ids and members.
template <class T>
std::size_t contentSize(const Groups<T>& groups)
{
  return std::accumulate(groups.begin(), groups.end(), std::size_t(0),
                         [](std::size_t size, const auto& group) {
                           return size + group.getName().size() + sizeof(IdentifierBits) +
                                  group.getGroupMembers().size() * sizeof(IdentifierBits);
                         });
}

/// Where the memory of new objects comes from.
enum class Heap { Recycles, AsksTheSystem };

/// Without these settings glibc learns from freed blocks how much to keep, so that the order of the
/// benchmarks would matter.
void setHeap([[maybe_unused]] Heap heap)
{
#if defined(__GLIBC__)
  constexpr int defaultThreshold = 128 * 1024;
  const bool recycles = heap == Heap::Recycles;
  mallopt(M_MMAP_MAX, recycles ? 0 : std::numeric_limits<std::int16_t>::max());
  mallopt(M_MMAP_THRESHOLD, defaultThreshold);
  mallopt(M_TRIM_THRESHOLD, recycles ? std::numeric_limits<int>::max() : defaultThreshold);
  malloc_trim(0);
#endif
}

template <class Action>
void unmeasured(benchmark::State& state, Action action)
{
  state.PauseTiming();
  action();
  state.ResumeTiming();
}

/// Its label is the size of everything but the content, in percent of the content.
template <class T>
void saveGroups(benchmark::State& state)
{
  const auto groups = makeGroups<T>();
  PersistenceArchiver archive;
  archive << groups;
  for (auto _ : state) {
    archive.clear();
    archive << groups;
  }
  const auto content = contentSize(groups);
  const auto overhead = archive.finish().size() - content;
  state.SetLabel(
      std::to_string(100.0 * static_cast<double>(overhead) / static_cast<double>(content)));
}

template <class T>
void finishGroups(benchmark::State& state)
{
  const auto groups = makeGroups<T>();
  PersistenceArchiver archive;
  for (auto _ : state) {
    unmeasured(state, [&] {
      archive.clear();
      archive << groups;
    });
    benchmark::DoNotOptimize(archive.finish().data());
  }
}

template <class T>
void openGroups(benchmark::State& state)
{
  const auto bytes = savedGroups<T>();
  for (auto _ : state) {
    const PersistenceArchiver archive{std::span(bytes)};
    benchmark::DoNotOptimize(archive.tellg());
  }
}

template <class T>
void loadKeptGroups(benchmark::State& state)
{
  const auto bytes = savedGroups<T>();
  auto groups = makeGroups<T>();
  std::optional<PersistenceArchiver> archive;
  for (auto _ : state) {
    unmeasured(state, [&] { archive.emplace(std::span(bytes)); });
    *archive >> groups;
  }
}

template <class T, Heap heap>
void loadNewGroups(benchmark::State& state)
{
  setHeap(heap);
  const auto bytes = savedGroups<T>();
  Groups<T> groups;
  std::optional<PersistenceArchiver> archive(std::in_place, std::span(bytes));
  *archive >> groups; // the first time, all memory is fresh
  for (auto _ : state) {
    unmeasured(state, [&] {
      archive.emplace(std::span(bytes));
      Groups<T>().swap(groups);
    });
    *archive >> groups;
  }
}

template <class T>
void saveByCereal(benchmark::State& state)
{
  const auto groups = makePlainGroups<T>();
  std::ostringstream stream(std::ios::binary);
  cereal::BinaryOutputArchive archive(stream);
  archive(groups);
  for (auto _ : state) {
    stream.seekp(0);
    archive(groups);
  }
}

template <class T>
std::istringstream savedByCereal()
{
  std::ostringstream stream(std::ios::binary);
  cereal::BinaryOutputArchive archive(stream);
  archive(makePlainGroups<T>());
  return std::istringstream(std::move(stream).str(), std::ios::binary);
}

template <class T>
void loadKeptByCereal(benchmark::State& state)
{
  auto stream = savedByCereal<T>();
  cereal::BinaryInputArchive archive(stream);
  auto groups = makePlainGroups<T>();
  for (auto _ : state) {
    stream.seekg(0);
    archive(groups);
  }
}

template <class T, Heap heap>
void loadNewByCereal(benchmark::State& state)
{
  setHeap(heap);
  auto stream = savedByCereal<T>();
  cereal::BinaryInputArchive archive(stream);
  PlainGroups<T> groups;
  archive(groups);
  for (auto _ : state) {
    unmeasured(state, [&] { PlainGroups<T>().swap(groups); });
    stream.seekg(0);
    archive(groups);
  }
}

template <class T>
void copyToKept(benchmark::State& state)
{
  const auto bytes = savedGroups<T>();
  Bytes copy(bytes.size());
  for (auto _ : state) {
    std::memcpy(copy.data(), bytes.data(), bytes.size());
    benchmark::ClobberMemory();
  }
}

template <class T, Heap heap>
void copyToNew(benchmark::State& state)
{
  setHeap(heap);
  const auto bytes = savedGroups<T>();
  auto copy = std::make_unique<std::byte[]>(bytes.size()); // NOLINT(modernize-avoid-c-arrays)
  for (auto _ : state) {
    unmeasured(state, [&] { copy.reset(); });
    copy.reset(new std::byte[bytes.size()]); // not filled with zeros
    std::memcpy(copy.get(), bytes.data(), bytes.size());
    benchmark::ClobberMemory();
  }
}

template <class T>
void computeChecksum(benchmark::State& state)
{
  const auto bytes = savedGroups<T>();
  for (auto _ : state)
    benchmark::DoNotOptimize(crc32c(bytes));
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) * state.iterations());
}

/// Constructs the members of new groups, as happens before they are loaded.
template <class T, Heap heap>
void constructMembers(benchmark::State& state)
{
  setHeap(heap);
  std::vector<std::vector<T>> lists(groupCount, std::vector<T>(memberCount));
  for (auto _ : state) {
    unmeasured(state, [&] {
      for (auto& members : lists)
        std::vector<T>().swap(members);
    });
    for (auto& members : lists)
      members.resize(memberCount);
    benchmark::ClobberMemory();
  }
}

using Function = void (*)(benchmark::State&);
using NamedFunctions = std::vector<std::pair<std::string, Function>>;

void addBenchmarks(const NamedFunctions& functions, const std::string& kind)
{
  for (const auto& [name, function] : functions)
    benchmark::RegisterBenchmark((name + '/').append(kind).c_str(), function)
        ->Unit(benchmark::kMicrosecond);
}

template <class T, Heap heap>
NamedFunctions newObjects(const std::string& memory)
{
  return {{"load new/archive/" + memory, loadNewGroups<T, heap>},
          {"load new/cereal/" + memory, loadNewByCereal<T, heap>},
          {"copy/" + memory, copyToNew<T, heap>},
          {"construct members/" + memory, constructMembers<T, heap>}};
}

template <class T>
void addBenchmarks(const std::string& kind)
{
  addBenchmarks({{"save/archive", saveGroups<T>},
                 {"finish/archive", finishGroups<T>},
                 {"save/cereal", saveByCereal<T>},
                 {"open/archive", openGroups<T>},
                 {"load kept/archive", loadKeptGroups<T>},
                 {"load kept/cereal", loadKeptByCereal<T>},
                 {"copy/kept", copyToKept<T>},
                 {"checksum", computeChecksum<T>}},
                kind);
  addBenchmarks(newObjects<T, Heap::Recycles>("recycled"), kind);
  addBenchmarks(newObjects<T, Heap::AsksTheSystem>("fresh"), kind);
}

}
}

int main(int argc, char** argv)
{
  Tarvik::addBenchmarks<Tarvik::Identifier>("Identifier");
  Tarvik::addBenchmarks<Tarvik::GUIdentifier>("GUIdentifier");
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
