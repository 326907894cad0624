// SPDX-License-Identifier: MIT
#include "RecordedRegistry.h"

namespace Tarvik {

RecordedRegistry& RecordedRegistry::get()
{
  static auto& registry = *new RecordedRegistry; // never destroyed: libraries may unload after it
  return registry;
}

}
