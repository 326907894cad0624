// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "PointCollections/Console/Text/Style.h"
#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Files/Files.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Tarvik::PointCollections {

/// What the verbs work on: the open document, the way back, and how the output looks.
struct Session {
  /// Asks the person at the keyboard for a line; nothing at the end of the input.
  using Question = std::function<std::optional<std::string>(const std::string& prompt)>;

  std::shared_ptr<PointDocument> document; ///< never null
  std::string title;                       ///< what the document is called, usually its file name
  Style style = {};
  CommandHistory history =
      CommandHistory(1000);               ///< every change of the document goes through it;
                                          ///< commands keep the groups, and memory has an end
  bool isOver = false;                    ///< set to leave the program
  std::filesystem::path projectFile = {}; ///< where save goes; empty while there is none
  std::size_t projectContent = 0;         ///< hash of what was read from or written to that file
  std::shared_ptr<Files> files = diskFiles(); ///< never null
  Question ask = {};                          ///< empty where nobody can be asked, as in a script
};

}
