// SPDX-License-Identifier: MIT
// The time of a line grows with the document, not with its square.
#include "PointCollections/Console/Shell/Completion.h"
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <functional>

namespace Tarvik::PointCollections {
namespace {

/// The names of elements as they are typed: each `step`-th of so many.
std::string names(std::size_t count, std::size_t step = 1)
{
  std::string line;
  for (std::size_t i = 0; i < count; i += step)
    line += " \"element " + std::to_string(i) + '"';
  return line;
}

std::string groupNames(std::size_t count)
{
  std::string line;
  for (std::size_t i = 0; i < count; ++i)
    line += " G" + std::to_string(i);
  return line;
}

/// A session with so many elements, all in groups of equal size.
Session largeSession(std::size_t elements, std::size_t groups)
{
  std::vector<PointCollection> collections;
  for (std::size_t i = 0; i < elements; ++i)
    collections.push_back(
        {.id = GUIdentifier(), .name = "element " + std::to_string(i), .points = {Point()}});
  auto document = PointDocument::create(collections);
  std::vector<TKGroup<GUIdentifier>> list;
  const auto members = static_cast<std::ptrdiff_t>(elements / groups);
  for (std::size_t i = 0; i < groups; ++i) {
    const auto first = document->order().begin() + members * static_cast<std::ptrdiff_t>(i);
    list.emplace_back("G" + std::to_string(i));
    list.back().addGroupMembersAtIndex({first, first + members}, -1);
  }
  document->setGroups(list);
  return {.editor = Editor({document, "large"}, std::make_shared<MemoryFiles>())};
}

/// Makes the line for a document of so many elements.
using MakeLine = std::function<std::string(std::size_t)>;

/// The least processor time of three runs, in seconds.
double secondsFor(std::size_t elements, std::size_t groups, const MakeLine& makeLine)
{
  auto session = largeSession(elements, groups);
  const auto line = makeLine(elements);
  double least = 1e9;
  for (int round = 0; round < 3; ++round) {
    const auto entries = session.editor.history().entries().size();
    const auto start = std::clock();
    try {
      run(session, {line});
      complete(session, line + " \"el");
    } catch (const UserError&) { // a mistake must be found quickly, too
    }
    least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    if (session.editor.history().entries().size() > entries)
      run(session, {"undo"});
  }
  return least;
}

/// Eight times the elements may take thirty times as long. It would be more than sixty times with
/// the square of their number. The summand is for the clock, and for what else the machine does.
void expectNoSquare(const MakeLine& makeLine, bool hasSmallGroups = false)
{
  constexpr std::size_t few = 2'000;
  constexpr std::size_t many = 16'000;
  const auto groups = [&](std::size_t elements) { return hasSmallGroups ? elements / 2 : 8; };
  const auto short_ = secondsFor(few, groups(few), makeLine);
  const auto long_ = secondsFor(many, groups(many), makeLine);
  EXPECT_LT(long_, 30 * short_ + 0.05) << makeLine(3) << ": " << short_ << " and " << long_;
}

TEST(LargeDocument, TakesTimeInProportionToTheElements)
{
  const auto half = [](std::size_t count) { return names(count, 2); };
  expectNoSquare([&](auto count) { return "create New" + half(count); });
  expectNoSquare([&](auto count) { return "add G7" + half(count); });
  expectNoSquare([&](auto count) { return "add G7 --before \"element 1\"" + half(count); });
  expectNoSquare([&](auto count) { return "move --after \"element 1\"" + half(count); });
  expectNoSquare([&](auto count) { return "remove" + half(count); });
  expectNoSquare([&](auto count) { return "remove" + half(count) + " \"elemnet 7\""; });
  expectNoSquare([&](auto count) { return "create New" + half(count) + names(1); });
  expectNoSquare([](auto) { return "show --all"; });
  expectNoSquare([](auto) { return "sort"; });
  expectNoSquare([](auto) { return "delete" + groupNames(7); });
}

TEST(LargeDocument, IsSearchedInTimeInProportionToTheElements)
{
  const auto half = [](std::size_t count) { return names(count, 2); };
  expectNoSquare([](auto) { return "find e"; });
  expectNoSquare([](auto) { return "find e --json"; });
  expectNoSquare([](auto) { return "where *"; });
  expectNoSquare([&](auto count) { return "where --json" + half(count); });
  expectNoSquare([&](auto count) { return "select *1* *:*" + half(count); });
  expectNoSquare([](auto) { return "select elemnet*"; });
  expectNoSquare([](auto) { return "show --all --json"; });
  expectNoSquare([](auto) { return "export large.csv --overwrite"; });
  expectNoSquare([](auto) { return "find e"; }, true);
  expectNoSquare([](auto) { return "select G*:*"; }, true);
  expectNoSquare([](auto) { return "export large.csv --overwrite"; }, true);
}

TEST(LargeDocument, TakesTimeInProportionToTheGroups)
{
  expectNoSquare([](auto count) { return "delete" + groupNames(count / 2); }, true);
  expectNoSquare([](auto count) { return "move-group --before G7" + groupNames(count / 2); }, true);
  expectNoSquare([](auto count) { return "remove" + names(count); }, true);
  expectNoSquare([](auto) { return "show"; }, true);
  expectNoSquare([](auto) { return "sort"; }, true);
  expectNoSquare([](auto) { return "create G1"; }, true);
}

}
}
