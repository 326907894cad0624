// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Recording.h"

namespace Tarvik {

void* MacroCommand::operator new(std::size_t size)
{
  Recording::note("new MacroCommand");
  return ::operator new(size);
}

void MacroCommand::operator delete(void* memory)
{
  ::operator delete(memory);
}

}
