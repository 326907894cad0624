// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandTransaction.h"

#include <utility>

namespace Tarvik {

CommandTransaction::CommandTransaction(CommandHistory& history, std::string description)
    : m_history(history), m_number(history.beginTransaction(std::move(description)))
{}

CommandTransaction::~CommandTransaction()
{
  m_history.abandonTransaction(m_number);
}

bool CommandTransaction::commit()
{
  return m_history.commitTransaction(m_number);
}

void CommandTransaction::rollBack()
{
  m_history.rollBackTransaction(m_number);
}

}
