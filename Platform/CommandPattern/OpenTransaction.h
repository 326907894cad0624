// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/EntryList.h"
#include "CommandPattern/MacroCommand.h"

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <utility>

namespace Tarvik {

/// The commands of a transaction that has not ended yet. Not for hosts.
///
/// All memory for the macro that they may become is taken before they run, so that a transaction
/// always ends one way or the other.
class OpenTransaction {
public:
  OpenTransaction(std::size_t number, std::string description)
      : m_number(number), m_description(std::move(description))
  {}

  std::size_t number() const noexcept { return m_number; }

  EntryList& commands() noexcept { return m_commands; }
  const EntryList& commands() const noexcept { return m_commands; }

  /// Makes room for one more command.
  void makeRoom()
  {
    m_commands.makeRoom();
    if (m_places.size() <= m_commands.size())
      m_places.emplace_back();
  }

  /// Makes the commands a macro, which has been executed already.
  std::shared_ptr<CommandBase> asOneCommand() noexcept
  {
    m_places.resize(m_commands.size());
    auto place = m_places.begin();
    for (const auto& command : m_commands.commands())
      *place++ = command;
    *m_macro = MacroCommand(std::move(m_places), std::move(m_description));
    return m_macro;
  }

private:
  std::size_t m_number;
  std::string m_description;
  EntryList m_commands;
  std::list<std::shared_ptr<CommandBase>> m_places; ///< empty ones, one for each command or more
  std::shared_ptr<MacroCommand> m_macro =
      std::make_shared<MacroCommand>(std::list<std::shared_ptr<CommandBase>>());
};

}
