// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik::LegacyProgress::Speed {

/// How long a command is expected to take, from shortest to longest.
///
/// A host reads it before it executes, undoes or redoes a command, and decides whether to show
/// nothing, a busy pointer or a progress bar.
enum class Rate {
  Instant, ///< not noticed
  Short,   ///< noticed, a few seconds at most
  Long     ///< worth a progress bar
};

}
