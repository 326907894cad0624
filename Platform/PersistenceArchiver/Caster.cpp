// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/Caster.h"

namespace Tarvik {

Caster::Caster() = default;

Caster::~Caster() = default;

}
