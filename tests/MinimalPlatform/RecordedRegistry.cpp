// SPDX-License-Identifier: MIT
#include "RecordedRegistry.h"

namespace Tarvik {

RecordedRegistry& RecordedRegistry::get()
{
  static RecordedRegistry registry;
  return registry;
}

}
