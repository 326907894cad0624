// SPDX-License-Identifier: MIT
#include "Recording.h"

namespace Tarvik {

namespace {

Recording* active = nullptr;

}

Recording::Recording()
{
  active = this;
}

Recording::~Recording()
{
  active = nullptr;
}

bool Recording::isActive()
{
  return active != nullptr;
}

void Recording::note(const std::string& operation, const std::string& argument)
{
  if (active != nullptr)
    active->m_calls.push_back(operation + argument);
}

}
