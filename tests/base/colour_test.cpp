#include "base/colour.h"

#include <gtest/gtest.h>

namespace plimo {
namespace {

TEST(Colour, RedIsTheLowestByteAndBlueTheHighest) {
  EXPECT_EQ(mixColour(255, 255, 0), 65535);
  EXPECT_EQ(mixColour(0, 0, 64), 4194304);
  EXPECT_EQ(mixColour(1, 2, 3), 1 + 2 * 256 + 3 * 65536);
  EXPECT_EQ(mixColour(255, 255, 255), 16777215);
  EXPECT_EQ(mixColour(0, 0, 0), 0);
}

}  // namespace
}  // namespace plimo
