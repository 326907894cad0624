// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>

/// What is measured of an undo history, whichever it is. A history has:
///
///     explicit History(std::size_t limit); // 0: none
///     void push();                         // the smallest command: it changes one number
///     void undo();
///     void redo();
///     void jumpTo(std::size_t position);
///     void clear();
namespace Tarvik::HistoryBenchmarks {

constexpr std::size_t many = 1'000'000;

template <class History>
void fill(History& history, std::size_t count)
{
  for (std::size_t i = 0; i < count; ++i)
    history.push();
}

template <class History>
void push(benchmark::State& state)
{
  History history(0);
  for (auto _ : state)
    history.push();
}

template <class History>
void pushAtFullLimit(benchmark::State& state)
{
  const auto limit = static_cast<std::size_t>(state.range(0));
  History history(limit);
  fill(history, 2 * limit);
  for (auto _ : state)
    history.push();
}

template <class History>
void undoAndRedo(benchmark::State& state)
{
  History history(0);
  fill(history, many);
  for (auto _ : state) {
    history.undo();
    history.redo();
  }
}

/// Over all entries and back.
template <class History>
void jump(benchmark::State& state)
{
  History history(0);
  fill(history, many);
  for (auto _ : state) {
    history.jumpTo(0);
    history.jumpTo(many);
  }
  state.SetItemsProcessed(state.iterations() * 2 * static_cast<std::int64_t>(many));
}

template <class History>
void clear(benchmark::State& state)
{
  History history(0);
  for (auto _ : state) {
    state.PauseTiming();
    fill(history, many);
    state.ResumeTiming();
    history.clear();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(many));
}

}
