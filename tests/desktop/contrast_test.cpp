#include "desktop/theme/list_colours.h"

#include <gtest/gtest.h>

namespace plimo {
namespace {

constexpr Colour yellow = 65535;
constexpr Colour darkBlue = 4194304;

TEST(Contrast, SplitsAColourNumberIntoItsThreeLights) {
  EXPECT_EQ(rgbOf(yellow), (Rgb{255, 255, 0}));
  EXPECT_EQ(rgbOf(darkBlue), (Rgb{0, 0, 64}));
  EXPECT_EQ(rgbOf(1 + 256 * 2 + 65536 * 3), (Rgb{1, 2, 3}));
}

TEST(Contrast, RunsFromOneToTwentyOne) {
  EXPECT_NEAR(contrast(black, white), 21, 0.01);
  EXPECT_NEAR(contrast(white, black), 21, 0.01);
  EXPECT_DOUBLE_EQ(contrast(rgbOf(yellow), rgbOf(yellow)), 1);
}

TEST(Contrast, MixesByShare) {
  EXPECT_EQ(mix(black, white, 0), black);
  EXPECT_EQ(mix(black, white, 1), white);
  EXPECT_EQ(mix(black, {100, 200, 50}, 0.5), (Rgb{50, 100, 25}));
}

TEST(Contrast, WritesWhiteOnTheRestingStripsAndBlackOnTheLitOnes) {
  EXPECT_EQ(readableOn({0, 128, 0}), white);
  EXPECT_EQ(readableOn({128, 64, 0}), white);
  EXPECT_EQ(readableOn({192, 255, 192}), black);
  EXPECT_EQ(readableOn({255, 192, 128}), black);
}

TEST(Contrast, LeavesAReadableColourAsItIs) { EXPECT_EQ(readable(rgbOf(yellow), rgbOf(darkBlue), 4.5), rgbOf(yellow)); }

TEST(Contrast, MovesAColourThatCannotBeReadTowardsOneThatCan) {
  const Rgb grey{120, 120, 120};
  const Rgb moved = readable(grey, {110, 110, 110}, 4.5);
  EXPECT_GE(contrast(moved, {110, 110, 110}), 4.5);
}

TEST(ListColours, KeepsTheUsersTwoColoursWhateverTheyAre) {
  for (const auto& [text, background] : {std::pair{yellow, darkBlue}, std::pair{darkBlue, darkBlue}}) {
    const ListColours colours = listColours(text, background);
    EXPECT_EQ(colours.text, rgbOf(text));
    EXPECT_EQ(colours.background, rgbOf(background));
  }
}

TEST(ListColours, ShowsSelectionAndMarksOnAnyTwoColours) {
  constexpr Colour steps[] = {0, 51, 102, 153, 204, 255};
  for (const Colour red : steps) {
    for (const Colour green : steps) {
      for (const Colour blue : steps) {
        const Colour back = red + 256 * green + 65536 * blue;
        for (const Colour text : {Colour{0}, yellow, Colour{16777215}, back}) {
          const ListColours colours = listColours(text, back);
          EXPECT_GE(contrast(colours.mark, colours.background), 4.5) << text << " on " << back;
          EXPECT_GE(contrast(colours.quiet, colours.background), 3) << text << " on " << back;
          EXPECT_GE(contrast(colours.selectedBackground, colours.background), 3) << text << " on " << back;
          EXPECT_GE(contrast(colours.selectedText, colours.selectedBackground), 4.5) << text << " on " << back;
        }
      }
    }
  }
}

}  // namespace
}  // namespace plimo
