// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "GroupHosting/Support/RandomHost.h"

#include <cstddef>

namespace Tarvik {

/// A host that changes at random: by commands in a history, by undo, redo and jumps, and without a
/// command.
template <class T>
class RandomChanges : public RandomHost<T> {
public:
  explicit RandomChanges(unsigned int seed) : RandomHost<T>(seed) {}

  void changeSomething()
  {
    switch (const auto choice = this->number(14)) {
    case 0:
      return static_cast<void>(m_history.undo());
    case 1:
      return static_cast<void>(m_history.redo());
    case 2:
      return m_history.jumpTo(this->number(m_history.entries().size() + 1));
    default:
      if (choice < 6)
        this->changeDirectly();
      else
        m_history.execute(this->someCommand()(this->provider));
    }
  }

private:
  CommandHistory m_history;
};

}
