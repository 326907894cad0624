// SPDX-License-Identifier: MIT
#include "PointCollections/Files/Pipe.h"

#include "PointCollections/Input/TextInput.h"

namespace Tarvik::PointCollections {

/// Pipes are no files on Windows. What has the name of one is opened as a file.
std::string readPipe(const std::filesystem::path& pipe)
{
  return readText(pipe);
}

}
