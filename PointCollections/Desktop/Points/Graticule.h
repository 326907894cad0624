// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Points/Camera.h"

#include <QtGui/QPainterPath>

namespace Tarvik::PointCollections {

/// The outline of the globe on which the points lie, which has the radius 1.
QPainterPath globeOutline(const Camera& camera);

/// The meridians and parallels on the front of the globe, every fifteen degrees. The z axis goes
/// through the poles.
QPainterPath graticule(const Camera& camera);

}
