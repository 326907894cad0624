// SPDX-License-Identifier: MIT
#include "RecordedRegistry.h"

namespace Tarvik {

const bool registryTakesClasses = true;
const std::size_t castersTakenOfEachClass = 0;

}
