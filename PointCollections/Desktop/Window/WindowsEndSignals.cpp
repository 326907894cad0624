// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/EndSignals.h"

namespace Tarvik::PointCollections {

EndSignals::EndSignals(QObject* parent) : QObject(parent) {}

EndSignals::~EndSignals() = default;

void EndSignals::endAsAsked() {}

}
