// SPDX-License-Identifier: MIT
#include "RecordedRegistry.h"

namespace Tarvik {

const bool registryTakesClasses = false;
const bool registryTakesCasters = true;

}
