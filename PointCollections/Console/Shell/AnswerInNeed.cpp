// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/AnswerInNeed.h"

#include "PointCollections/Text/Translated.h"

#include <new>
#include <optional>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// The error with what the history has lost; nothing if there is no loss, or no memory to tell it.
std::optional<UserError> withLoss(const UserError& error, Editor& editor)
{
  try {
    const auto steps = editor.stepsForgottenInNeed();
    if (steps == 0)
      return std::nullopt;
    // For translators: follows "there is not enough memory for this", for example
    const auto loss = translatedCount(steps, "; {} step can no longer be undone or redone",
                                      "; {} steps can no longer be undone or redone");
    std::optional<UserError> complete(error.what() + loss);
    editor.takeStepsForgottenInNeed();
    return complete;
  } catch (const std::bad_alloc&) {
    return std::nullopt; // a later answer tells the loss
  }
}

}

AnswerInNeed::AnswerInNeed(Editor& editor)
    : m_editor(editor),
      m_changes(editor.changes()),
      m_stepsInEffect(editor.stepsInEffect()),
      m_done(translated("Done. There is not enough memory to say more.")),
      // For translators: "history" is a command that the user types
      m_partlyDone(translated("there is not enough memory: only some of the steps were undone or "
                              "redone; history shows which")),
      m_nothingDone(translated("there is not enough memory for this"))
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
  return steps == 0
             ? std::string()
             : translatedCount(
                   steps, "There was not enough memory: {} step can no longer be undone or redone.",
                   "There was not enough memory: {} steps can no longer be undone or redone.");
}

}
