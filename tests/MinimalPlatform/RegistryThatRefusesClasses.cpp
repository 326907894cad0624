// SPDX-License-Identifier: MIT
#include "RecordedRegistry.h"

namespace Tarvik {

const bool registryTakesClasses = false;
const std::size_t castersTakenOfEachClass = 2;

}
