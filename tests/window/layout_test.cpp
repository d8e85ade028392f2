#include "window/layout.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace plimo {
namespace {

TEST(Layout, KeepsProportions) {
  const Ratio ratio = ratioOf({1000, 2000, 3000, 4000}, 10000, 8000);
  EXPECT_FLOAT_EQ(ratio.left, 0.1F);
  EXPECT_FLOAT_EQ(ratio.top, 0.25F);
  EXPECT_FLOAT_EQ(ratio.width, 0.3F);
  EXPECT_FLOAT_EQ(ratio.height, 0.5F);
  const Geometry geometry = geometryFor(ratio, 20000, 4000);
  EXPECT_NEAR(geometry.left, 2000, 0.01);
  EXPECT_NEAR(geometry.top, 1000, 0.01);
  EXPECT_NEAR(geometry.width, 6000, 0.01);
  EXPECT_NEAR(geometry.height, 2000, 0.01);
}

TEST(Layout, SkipsTimersAndMenus) {
  EXPECT_FALSE(hasGeometry(ControlKind::timer));
  EXPECT_FALSE(hasGeometry(ControlKind::menu));
  EXPECT_TRUE(hasGeometry(ControlKind::mediaPlayer));
  EXPECT_TRUE(hasGeometry(ControlKind::shape));
}

TEST(Layout, MakesTheCompactWindowAFortiethWiderAndTwiceAsHigh) {
  const WindowSize size = compactSize(4000, 3000);
  EXPECT_DOUBLE_EQ(size.width, 4100);
  EXPECT_DOUBLE_EQ(size.height, 6000);
}

TEST(Layout, RoundsWholeMeasuresToEven) {
  EXPECT_EQ(wholeMeasure(1320.4), 1320);
  EXPECT_EQ(wholeMeasure(1320.5), 1320);
  EXPECT_EQ(wholeMeasure(1321.5), 1322);
  EXPECT_EQ(wholeMeasure(32767.4), 32767);
}

TEST(Layout, RefusesWholeMeasuresBeyondSixteenBits) {
  for (const double measure : {32767.5, 32768.0, 1e9, -32769.0}) {
    try {
      wholeMeasure(measure);
      ADD_FAILURE() << measure << " was accepted";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::overflow);
    }
  }
}

}  // namespace
}  // namespace plimo
