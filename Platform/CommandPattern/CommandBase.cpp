// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandBase.h"

#include <utility>

namespace Tarvik {

CommandBase::CommandBase(std::string description) : m_description(std::move(description)) {}

CommandBase::CommandBase(CommandBase&& other) noexcept
    : m_description(std::exchange(other.m_description, {}))
{}

CommandBase& CommandBase::operator=(CommandBase&& other) noexcept
{
  if (this != &other)
    m_description = std::exchange(other.m_description, {});
  return *this;
}

CommandBase::~CommandBase() = default;

const std::string& CommandBase::getDescription() const
{
  return m_description;
}

LegacyProgress::Speed::Rate CommandBase::getSpeedRate()
{
  return LegacyProgress::Speed::Rate::Instant;
}

bool CommandBase::isRedoCapable()
{
  return true;
}

}
