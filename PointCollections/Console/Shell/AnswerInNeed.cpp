// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/AnswerInNeed.h"

#include "PointCollections/Text/Quoting.h"

#include <new>
#include <optional>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// The error with what the history has lost; nothing if there is no loss, or no memory to tell it.
std::optional<UserError> withLoss(const UserError& error, Editor& editor)
{
  try {
    const auto loss = lossOf(editor);
    if (loss.empty())
      return std::nullopt;
    std::optional<UserError> complete(std::string(error.what()) + "; " + loss);
    editor.takeStepsForgottenInNeed();
    return complete;
  } catch (const std::bad_alloc&) {
    return std::nullopt; // a later answer tells the loss
  }
}

}

AnswerInNeed::AnswerInNeed(Editor& editor)
    : m_editor(editor), m_changes(editor.changes()), m_stepsInEffect(editor.stepsInEffect())
{}

std::string AnswerInNeed::take()
{
  if (m_editor.changes() != m_changes)
    return std::move(m_done);
  const auto& error = m_editor.stepsInEffect() != m_stepsInEffect ? m_partlyDone : m_nothingDone;
  throw withLoss(error, m_editor).value_or(error);
}

std::string lossOf(const Editor& editor)
{
  const auto steps = editor.stepsForgottenInNeed();
  return steps == 0 ? std::string()
                    : pluralize(steps, "step") + " can no longer be undone or redone";
}

}
