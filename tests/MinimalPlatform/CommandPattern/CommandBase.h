// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/LegacyProgress.h"
#include "Recording.h"

#include <string>
#include <utility>

namespace Tarvik {

/// The least that a platform may offer. Its moves may throw. Records assignments.
class CommandBase {
public:
  explicit CommandBase(std::string description) : m_description(std::move(description)) {}
  CommandBase(CommandBase&& other) : m_description(std::move(other.m_description)) {}
  CommandBase& operator=(CommandBase&& other)
  {
    Recording::note("CommandBase = ", &other == this ? "itself" : "another");
    if (&other != this)
      m_description = std::move(other.m_description);
    return *this;
  }
  virtual ~CommandBase() = default;

  virtual void execute() = 0;
  virtual void undo() = 0;
  virtual void redo() = 0;
  virtual const std::string& getDescription() const { return m_description; }
  virtual LegacyProgress::Speed::Rate getSpeedRate() { return LegacyProgress::Speed::Rate::Only; }
  virtual bool isRedoCapable() { return true; }

private:
  std::string m_description;
};

}
