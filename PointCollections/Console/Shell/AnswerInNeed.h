// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Editor/Editor.h"
#include "PointCollections/Text/UserError.h"

#include <cstddef>
#include <string>

namespace Tarvik::PointCollections {

/// What a line answers when memory runs out before its own answer is complete. The document may
/// have changed by then, so the answer depends on what the line has done so far.
///
/// Make it before the line runs: it holds all its texts, as there may be no memory for them later.
class AnswerInNeed {
public:
  /// @param editor  what the line works on; must outlive this
  explicit AnswerInNeed(Editor& editor);

  /// @return the answer if the line has made its change
  /// @throws UserError if it has changed nothing, or has undone or redone some of its steps only
  std::string take();

private:
  Editor& m_editor;
  std::size_t m_changes;
  std::size_t m_stepsInEffect;
  std::string m_done;
  UserError m_partlyDone;
  UserError m_nothingDone;
};

/// What the history has lost for want of memory: "There was not enough memory: 2 steps can no
/// longer be undone or redone." Empty if there is nothing to tell.
std::string lossOf(const Editor& editor);

}
