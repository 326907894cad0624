// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Text/Style.h"

#include <memory>
#include <string>

namespace Tarvik::PointCollections {

/// What the verbs work on: the open document, the way back, and how the output looks.
struct Session {
  std::shared_ptr<PointDocument> document; ///< never null
  std::string title;                       ///< what the document is called, usually its file name
  Style style = {};
  CommandHistory history = CommandHistory(); ///< every change of the document goes through it
  bool isOver = false;                       ///< set to leave the program
};

}
