// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Shell/UnsavedChanges.h"

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// Answers the questions of a session with fixed answers, and then with the end of the input. Must
/// outlive the session's use.
class Questions {
public:
  Questions(Session& session, std::deque<std::string> answers) : m_answers(std::move(answers))
  {
    session.confirmDiscarding = [this](Session& asking) {
      return confirmDiscardingChanges(
          asking, [this](const auto& prompt, const auto&) { return answer(prompt); });
    };
  }

  std::vector<std::string> asked; ///< the questions so far

private:
  std::optional<std::string> answer(const std::string& prompt)
  {
    asked.push_back(prompt);
    if (m_answers.empty())
      return std::nullopt;
    auto next = m_answers.front();
    m_answers.pop_front();
    return next;
  }

  std::deque<std::string> m_answers;
};

}
