// SPDX-License-Identifier: MIT
// How long the verbs of point-collections take on a large document: 100,000 elements in groups of
// 10,000, of which one is left out, so that 10,000 elements are ungrouped. Each time is that of one
// line, from its text to its answer. What a line changes is undone outside of the time.

#include "PointCollections/Console/Shell/Completion.h"
#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Text/UserError.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t elementsInAll = 100'000;
constexpr std::size_t elementsInGroup = 10'000;

/// Keeps what is saved.
class FilesInMemory : public Files {
public:
  std::string readText(const std::filesystem::path&) override { return {}; }
  std::vector<std::byte> readBytes(const std::filesystem::path& file) override
  {
    return m_files.at(file);
  }
  FileStart readStart(const std::filesystem::path& file, std::size_t count) override
  {
    const auto& bytes = m_files.at(file);
    const auto start = std::span(bytes).first(std::min(count, bytes.size()));
    return {{start.begin(), start.end()}, bytes.size()};
  }
  WriteResult write(const std::filesystem::path& file, std::span<const std::byte> bytes) override
  {
    m_files[file].assign(bytes.begin(), bytes.end());
    return {};
  }
  std::unique_ptr<FileLock> lockForSaving(const std::filesystem::path&) override { return nullptr; }
  bool exists(const std::filesystem::path& file) override { return m_files.contains(file); }
  bool areSame(const std::filesystem::path& one, const std::filesystem::path& other) override
  {
    return one == other;
  }
  std::vector<std::string> namesIn(const std::filesystem::path&) override { return {}; }

private:
  std::map<std::filesystem::path, std::vector<std::byte>> m_files;
};

/// The name of an element by its place in the document. The names are in no order.
std::string elementName(std::size_t place)
{
  constexpr std::size_t stride = 77'777; // has no divisor in common with the number of elements
  return fmt::format("Place {:06}", place * stride % elementsInAll);
}

std::vector<PointCollection> manyElements()
{
  std::vector<PointCollection> elements;
  for (std::size_t i = 0; i < elementsInAll; ++i)
    elements.push_back({.id = GUIdentifier(), .name = elementName(i), .points = {Point()}});
  return elements;
}

/// A document with groups of so many elements: the first elements are in "Group 1", the next in
/// "Group 2", and so on. The last 10,000 elements are in none.
std::shared_ptr<PointDocument> largeDocument(std::size_t members = elementsInGroup)
{
  auto document = PointDocument::create(manyElements());
  const auto& order = document->order();
  const std::size_t count = (elementsInAll - elementsInGroup) / members;
  std::vector<TKGroup<GUIdentifier>> groups;
  groups.reserve(count);
  for (auto start = order.begin(); groups.size() < count;
       start += static_cast<std::ptrdiff_t>(members)) {
    groups.emplace_back(fmt::format("Group {}", groups.size() + 1));
    groups.back().addGroupMembersAtIndex({start, start + static_cast<std::ptrdiff_t>(members)}, -1);
  }
  document->setGroups(groups);
  return document;
}

Session sessionOf(std::shared_ptr<PointDocument> document)
{
  return {.editor = Editor({std::move(document), "large.tkpc"}, std::make_shared<FilesInMemory>())};
}

/// The names of so many elements as they are typed, from `first` on in steps of `step`.
std::string names(std::size_t first, std::size_t count, std::size_t step = 1)
{
  std::string line;
  for (std::size_t i = 0; i < count; ++i)
    line += fmt::format(" \"{}\"", elementName(first + i * step));
  return line;
}

std::string wholeGroup()
{
  return names(0, elementsInGroup);
}

std::string scattered()
{
  return names(7, elementsInGroup, elementsInAll / elementsInGroup);
}

/// As scattered(), but only elements that are in groups.
std::string scatteredMembers()
{
  return names(7, elementsInGroup, (elementsInAll / elementsInGroup) - 1);
}

std::string names(const std::string& stem, std::size_t count)
{
  std::string line;
  for (std::size_t i = 1; i <= count; ++i)
    line += fmt::format(" \"{} {}\"", stem, i);
  return line;
}

using Lines = std::vector<std::string>;

/// A line to measure, with those that must run once before all, and after each time.
struct Case {
  std::string name;
  std::string line;
  Lines prepare = {};
  Lines after = {};
  std::size_t members = elementsInGroup; ///< of each group
};

void run(Session& session, const Lines& lines)
{
  for (const auto& line : lines)
    runLine(session, line);
}

/// @param action  what is measured
void measure(benchmark::State& state, const Case& each, const std::function<void(Session&)>& action)
{
  auto session = sessionOf(largeDocument(each.members));
  run(session, each.prepare);
  for (auto _ : state) {
    action(session);
    state.PauseTiming();
    run(session, each.after);
    state.ResumeTiming();
  }
}

void measureLine(benchmark::State& state, const Case& each)
{
  measure(state, each,
          [&](Session& session) { benchmark::DoNotOptimize(runLine(session, each.line).size()); });
}

void measureMistake(benchmark::State& state, const Case& each)
{
  measure(state, each, [&](Session& session) {
    try {
      runLine(session, each.line);
      state.SkipWithError("this is no mistake");
    } catch (const UserError& error) {
      benchmark::DoNotOptimize(error.what());
    }
  });
}

void measureCompletion(benchmark::State& state, const Case& each)
{
  measure(state, each, [&](Session& session) {
    benchmark::DoNotOptimize(complete(session, each.line).candidates.size());
  });
}

/// So many groups, one line each, in a document of its own.
void createGroups(benchmark::State& state, bool haveElements)
{
  for (auto _ : state) {
    state.PauseTiming();
    auto session = sessionOf(PointDocument::create(manyElements()));
    state.ResumeTiming();
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.range(0)); ++i)
      runLine(session, fmt::format("create \"New {}\"{}", i, haveElements ? names(i, 1) : ""));
    state.PauseTiming();
    session.editor.replaceDocument({PointDocument::create(), ""});
    state.ResumeTiming();
  }
}

Lines edits(std::size_t count)
{
  Lines lines;
  for (std::size_t i = 0; i < count; ++i)
    lines.push_back("add \"Group 9\"" + names(i, 1));
  return lines;
}

std::vector<Case> linesToMeasure()
{
  const Lines undo = {"undo"};
  return {
      {"show", "show"},
      {"show GROUP", "show \"Group 1\""},
      {"show --ungrouped", "show --ungrouped"},
      {"show --all", "show --all"},
      {"show --all --json", "show --all --json"},
      {"show --ungrouped --json", "show --ungrouped --json"},
      {"find, one", "find 77777"},
      {"find, a letter of all", "find e"},
      {"find, nothing", "find nowhere"},
      {"find --json", "find e --json"},
      {"where, 1 element", "where" + names(0, 1)},
      {"where, all elements", "where *"},
      {"where --json", "where * --json"},
      {"where, 10000 elements", "where" + scattered()},
      {"select, 10000 elements", "select" + scattered()},
      {"select, all elements", "select *"},
      {"select, a pattern", "select *1*2*"},
      {"select, members", "select *:*"},
      {"select, places", "select *:2-5000 :1-5"},
      {"export", "export large.csv --overwrite"},
      {"create, no elements", "create New", {}, undo},
      {"create, 10 elements", "create New" + names(7, 10, 9999), {}, undo},
      {"create, a group", "create New" + wholeGroup(), {}, undo},
      {"create, 10000 elements", "create New" + scattered(), {}, undo},
      {"add, 1 element", "add \"Group 9\"" + names(0, 1), {}, undo},
      {"add, a group", "add \"Group 9\"" + wholeGroup(), {}, undo},
      {"add, 10000 elements", "add \"Group 9\"" + scattered(), {}, undo},
      {"add --before", "add \"Group 9\" --before" + names(85000, 1) + scattered(), {}, undo},
      {"add, already there", "add \"Group 1\"" + wholeGroup()},
      {"move, 1 element", "move" + names(0, 1) + " --before" + names(85000, 1), {}, undo},
      {"move, a group", "move --before" + names(85000, 1) + wholeGroup(), {}, undo},
      {"move, 10000 elements", "move --after" + names(85000, 1) + scattered(), {}, undo},
      {"move, to the ungrouped", "move --after" + names(95000, 1) + scattered(), {}, undo},
      {"move, already there", "move --after" + names(0, 1) + names(1, elementsInGroup - 1)},
      {"remove, 1 element", "remove" + names(0, 1), {}, undo},
      {"remove, a group", "remove" + wholeGroup(), {}, undo},
      {"remove, 10000 elements", "remove" + scatteredMembers(), {}, undo},
      {"rename", "rename \"Group 1\" Other", {}, undo},
      {"delete, 1 group", "delete \"Group 1\"", {}, undo},
      {"delete, all groups", "delete" + names("Group", 9), {}, undo},
      {"sort", "sort", {}, undo},
      {"undo", "undo", {"create New" + scattered()}, {"redo"}},
      {"redo", "redo", {"create New" + scattered(), "undo"}, undo},
      {"undo 30", "undo 30", edits(30), {"redo 30"}},
      {"redo 30",
       "redo 30",
       [] {
         auto lines = edits(30);
         lines.emplace_back("undo 30");
         return lines;
       }(),
       {"undo 30"}},
      {"history, 100 steps", "history", edits(100)},
      {"history --json", "history --json", edits(100)},
      {"save", "save large.tkpc --overwrite"},
      {"save, once more", "save", {"save large.tkpc"}},
      {"open", "open large.tkpc --discard", {"save large.tkpc"}},
      {"help", "help"},
  };
}

std::vector<Case> mistakesToMeasure()
{
  return {
      {"a misspelt element", "add \"Group 1\"" + scattered() + " \"Plaec 999999\""},
      {"a misspelt group", "show \"Gruop 1\""},
      {"an ungrouped element", "remove" + scatteredMembers() + names(95000, 1)},
      {"an element given twice", "create New" + scattered() + names(7, 1)},
      {"a quote never closed", "create New" + scattered() + " \"Place"},
      {"a pattern of nothing", "select Plaec*"},
      {"names without quotes", "create New Place 000000"},
  };
}

std::vector<Case> completionsToMeasure()
{
  return {
      {"an element", "add \"Group 1\" "},
      {"an element, after 10000", "add \"Group 1\"" + scattered() + " \"Place 0000"},
      {"an element, in small letters", "add \"Group 1\" \"place"},
      {"a member", "remove "},
      {"a member, after 10000", "remove" + scatteredMembers() + " \"Place 00"},
      {"a group", "show \"Gr"},
      {"a member to go before", "add \"Group 1\" --before "},
  };
}

/// In 9,000 groups of 10 members.
std::vector<Case> linesOnManyGroups()
{
  const Lines undo = {"undo"};
  std::vector<Case> cases = {
      {"show", "show"},
      {"create, no elements", "create Other", {}, undo},
      {"rename", "rename \"Group 9000\" Other", {}, undo},
      {"add, 1 element", "add \"Group 9000\"" + names(0, 1), {}, undo},
      {"add, 10000 elements", "add \"Group 9000\"" + scattered(), {}, undo},
      {"sort", "sort", {}, undo},
      {"delete, all groups", "delete" + names("Group", 9000), {}, undo},
      {"undo 30", "undo 30", edits(30), {"redo 30"}},
  };
  for (auto& each : cases)
    each.members = 10;
  return cases;
}

}
}

int main(int argc, char** argv)
{
  using namespace Tarvik::PointCollections;
  for (const auto& each : linesToMeasure())
    benchmark::RegisterBenchmark(("line/" + each.name).c_str(), measureLine, each)
        ->Unit(benchmark::kMillisecond);
  for (const auto& each : mistakesToMeasure())
    benchmark::RegisterBenchmark(("mistake/" + each.name).c_str(), measureMistake, each)
        ->Unit(benchmark::kMillisecond);
  for (const auto& each : completionsToMeasure())
    benchmark::RegisterBenchmark(("completion/" + each.name).c_str(), measureCompletion, each)
        ->Unit(benchmark::kMillisecond);
  for (const auto& each : linesOnManyGroups())
    benchmark::RegisterBenchmark(("9000 groups/" + each.name).c_str(), measureLine, each)
        ->Unit(benchmark::kMillisecond);
  for (const bool haveElements : {false, true})
    benchmark::RegisterBenchmark(haveElements ? "creating/an element each" : "creating/empty",
                                 createGroups, haveElements)
        ->Unit(benchmark::kMillisecond)
        ->RangeMultiplier(10)
        ->Range(100, 10'000)
        ->Iterations(1);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  benchmark::RunSpecifiedBenchmarks();
}
