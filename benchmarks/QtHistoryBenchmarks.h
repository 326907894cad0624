// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik {

/// Measures QUndoStack as HistoryBenchmarks.h says.
void registerQtHistoryBenchmarks();

}
