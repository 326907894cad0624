// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/Graticule.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

TEST(Graticule, LiesWithinTheOutlineOfTheGlobe)
{
  Camera camera;
  camera.setViewport({400, 300});
  camera.turn({40, 25});
  const auto outline = globeOutline(camera);
  const auto path = graticule(camera);

  EXPECT_EQ(outline.boundingRect(), QRectF(65, 15, 270, 270));
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPointF place(path.elementAt(i));
    EXPECT_LE(QLineF(camera.origin(), place).length(), 135.01) << "element " << i;
  }
}

TEST(Graticule, LeavesOutTheFarSide)
{
  Camera camera;
  camera.setViewport({400, 300});

  // From the side, half of each parallel is seen, and half of the meridians.
  int starts = 0;
  const auto path = graticule(camera);
  for (int i = 0; i < path.elementCount(); ++i)
    starts += path.elementAt(i).isMoveTo() ? 1 : 0;
  const auto meridiansInFront = 13; // with the two on the edge
  const auto parallels = 11;
  EXPECT_LE(starts, meridiansInFront + 2 * parallels + 24); // poles count for all meridians
  EXPECT_LT(path.elementCount(), (24 * 61 + 11 * 121) * 6 / 10);
}

}
}
