// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Terminal/ProgressLine.h"
#include "PointCollections/Console/Text/Style.h"
#include "PointCollections/Editor/Editor.h"
#include "PointCollections/Selection/Selection.h"

#include <cstddef>
#include <functional>

namespace Tarvik::PointCollections {

/// The user's answer to the question whether unsaved changes may be discarded.
enum class Confirmation {
  Given,   ///< go on: nothing is unsaved, or the user has just saved it or discards it
  Refused, ///< stop: the user wants to keep the document open
  Missing  ///< nobody can be asked, or the input ended
};

/// What the verbs work on.
struct Session {
  Editor editor;
  Style style = {};    ///< of the output
  bool isOver = false; ///< set it to leave the program

  /// Finds the elements that words select in the document.
  Selection selection() const { return {*editor.document(), editor.files()}; }

  /// Asks the user whether unsaved changes may be discarded, and saves them first if the user wants
  /// that. Throws UserError if saving fails. Empty in a script, where nobody can be asked.
  std::function<Confirmation(Session&)> confirmDiscarding = {};

  /// Tells of unsaved work that an earlier run has left on the document, or offers it. Called after
  /// a document has been opened. May be empty.
  std::function<void()> lookForUnsavedWork = {};

  /// Keeps unsaved changes for the next start of the program. Returns whether it could. May be
  /// empty.
  std::function<bool()> keepUnsavedChanges = {};

  /// How many columns the terminal has that shows the answers. Empty if there is no terminal.
  std::function<std::size_t()> columns = {};

  /// Shows that a command goes on, if there is a terminal.
  ProgressLine* progress = nullptr;

  /// What the user is to be told after a command; an empty text if nothing. May be empty.
  std::function<std::string()> takeNotice = {};
};

}
