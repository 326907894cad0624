// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/MapContainer.h"

namespace Tarvik {

MapContainer::MapContainer() = default;

MapContainer::~MapContainer() = default;

}
