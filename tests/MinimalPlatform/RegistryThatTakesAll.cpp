// SPDX-License-Identifier: MIT
#include "RecordedRegistry.h"

namespace Tarvik {

const bool registryTakesClasses = true;
const bool registryTakesCasters = true;

}
