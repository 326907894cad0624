// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>

/// How far a long work is, for a display in another thread. There is one work at a time. Work in
/// another thread may tell it too; it does no harm.
namespace Tarvik::PointCollections::Progress {

/// Starts a new work, of which nothing is known yet.
void reset();

/// Tells how much is done. Takes next to no time.
/// @param whole  not 0
void tell(std::size_t done, std::size_t whole);

/// How much is done, from 0 to 100; nothing if the work does not tell.
std::optional<int> percent();

}
