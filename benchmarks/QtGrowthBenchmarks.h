// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik::QtGrowth {

/// Registers the edits of GrowthBenchmarks.cpp as a Qt program would make them, of the kind "Qt".
void addBenchmarks();

}
