#include "prefs/colour_scheme.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace plimo {
namespace {

int errorOf(std::string_view content) {
  try {
    rewriteFirstSix(content, "plimo.ini");
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.path(), "plimo.ini");
    return static_cast<int>(error.number());
  }
  return 0;
}

TEST(ColourScheme, RedIsTheLowestByteAndBlueTheHighest) {
  EXPECT_EQ(mixColour(255, 255, 0), 65535);
  EXPECT_EQ(mixColour(0, 0, 64), 4194304);
  EXPECT_EQ(mixColour(1, 2, 3), 1 + 2 * 256 + 3 * 65536);
  EXPECT_EQ(mixColour(255, 255, 255), 16777215);
  EXPECT_EQ(mixColour(0, 0, 0), 0);
}

TEST(ColourScheme, SettingsGoBackInTheFormsInWhichTheyWereRead) {
  EXPECT_EQ(rewriteFirstSix("1\r\n#TRUE#\r\n#FALSE#\r\n\"C:E:\"\r\n0\r\n1\r\n", ""),
            "1\r\n#TRUE#\r\n#FALSE#\r\n\"C:E:\"\r\n0\r\n1\r\n");
  EXPECT_EQ(rewriteFirstSix("\"1\"\r\nyes\r\n#NULL#\r\n7\r\n\r\n-1.5\r\n", ""),
            "\"1\"\r\n\"yes\"\r\n#NULL#\r\n\"7\"\r\n\r\n-1.5\r\n");
}

TEST(ColourScheme, SettingsEndedByCommasOrLineFeedsComeBackALineEach) {
  EXPECT_EQ(rewriteFirstSix("1, #TRUE#,#FALSE#\n\"a \"\"b\"\":\" ,0 ,1", ""),
            "1\r\n#TRUE#\r\n#FALSE#\r\n\"a \"\"b\"\":\"\r\n0\r\n1\r\n");
}

TEST(ColourScheme, WhatFollowsTheSixthSettingIsLeftBehind) {
  EXPECT_EQ(rewriteFirstSix("0\r\n0\r\n0\r\n\"\"\r\n0\r\n0\r\n65535\r\n\"5\"\r\n", ""),
            "0\r\n0\r\n0\r\n\"\"\r\n0\r\n0\r\n");
}

TEST(ColourScheme, TheDrivesMustBeATextAndSixSettingsMustStand) {
  EXPECT_EQ(errorOf("0\r\n0\r\n0\r\n#TRUE#\r\n0\r\n0\r\n"), 13);
  EXPECT_EQ(errorOf("0\r\n0\r\n0\r\n\"#TRUE#\"\r\n0\r\n0\r\n"), 0);
  EXPECT_EQ(errorOf("0\r\n0\r\n0\r\n\"\"\r\n0\r\n"), 62);
  EXPECT_EQ(errorOf(""), 62);
}

TEST(ColourScheme, TheLastColourOfTheFileIsAText) {
  EXPECT_EQ(settingsWithScheme("six\r\n", {1, 2, 3, 4, 5, 6}), "six\r\n1\r\n2\r\n3\r\n4\r\n5\r\n\"6\"\r\n");
}

TEST(ColourScheme, NoSettingsAreFiveEmptyLinesAndAnEmptyText) {
  EXPECT_EQ(noSettings, "\r\n\r\n\r\n\"\"\r\n\r\n\r\n");
  EXPECT_EQ(rewriteFirstSix(noSettings, ""), noSettings);
}

}  // namespace
}  // namespace plimo
