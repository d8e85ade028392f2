#include "prefs/settings_choice.h"

#include <gtest/gtest.h>

#include <vector>

namespace plimo {
namespace {

TEST(SettingsChoice, SixValuesALineEachInTheirOwnForms) {
  EXPECT_EQ(settingsText({true, false, true, "C:D:", false, true}), "1\r\n#FALSE#\r\n#TRUE#\r\n\"C:D:\"\r\n0\r\n1\r\n");
  EXPECT_EQ(settingsText({false, true, false, "", true, false}), "0\r\n#TRUE#\r\n#FALSE#\r\n\"\"\r\n1\r\n0\r\n");
}

TEST(SettingsChoice, DrivesAreTheirLettersWithAColonEach) {
  const std::vector<std::string_view> rows{"C: Hard Drive", "E: CDROM", "F: REMOVABLE"};
  EXPECT_EQ(driveText(rows), "C:E:F:");
  EXPECT_EQ(driveText({}), "");
  EXPECT_EQ(driveLetterOf("C: Hard Drive"), "C");
}

}  // namespace
}  // namespace plimo
