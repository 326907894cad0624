// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace Tarvik::PointCollections {

/// All bytes that come through a pipe (FIFO), until its last writer has gone. Waits for a writer.
/// @throws Interrupted if the user stops the waiting
/// @throws UserError if the pipe cannot be read
std::string readPipe(const std::filesystem::path& pipe);

}
