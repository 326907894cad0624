// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// How the same edits grow with a list of 10³ to 10⁶ elements: what is selected, and the names of
/// the benchmarks. Shared by the commands and by Qt, so that both edit the same.
namespace Tarvik::Growth {

/// What an edit gets. Scattered elements are evenly spread over all groups, in random order.
enum class Selection { One, Thousand, Tenth, WholeGroup };

inline constexpr std::array allSelections = {Selection::One, Selection::Thousand, Selection::Tenth,
                                             Selection::WholeGroup};

/// As it is in the names of the benchmarks.
std::string nameOf(Selection selection);

/// A list of groups that all have the same number of members.
struct Size {
  std::size_t groups;
  std::size_t members;
};

/// The lists to measure. A whole group is one of ten; everything else is in a list of up to a
/// thousand groups.
std::vector<Size> sizesFor(Selection selection);

Size sizeOf(const benchmark::State& state);

/// A member of a list of groups.
struct Place {
  std::size_t group;
  std::size_t member;
};

/// The members that are selected. Never the one in the middle of a group, so that it can be the
/// target of a move.
/// @param round  another number selects other members, from 0 to 8
std::vector<Place> placesOf(Selection selection, const Size& size, std::size_t round = 0);

/// The groups that are deleted or moved: one, or every tenth.
std::vector<std::size_t> selectedGroups(Selection selection, const Size& size);

using Function = std::function<void(benchmark::State&)>;

/// A benchmark "command/selection/operation/kind/groups/members" for each size.
void addBenchmark(const std::string& name,
                  const Function& function,
                  const std::vector<Size>& sizes);

/// The same, run once only: for what takes seconds.
void addSlowBenchmark(const std::string& name, const Function& function, const Size& size);

/// Reports how many bytes of the heap each of `count` calls of an action keeps.
/// @param keepOne  called with 0 first, which is not counted: that may allocate what is kept once
void reportKept(benchmark::State& state,
                std::size_t count,
                const std::function<void(std::size_t round)>& keepOne);

}
