#include "settings/settings_file.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "platform/memory/fake_file_system.h"

namespace plimo {
namespace {

int errorOf(std::string_view content) {
  try {
    panelTextOf(content, "plimo.ini");
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.path(), "plimo.ini");
    return static_cast<int>(error.number());
  }
  return 0;
}

TEST(SettingsFile, PanelValuesKeepTheFormInWhichTheyWereRead) {
  EXPECT_EQ(panelTextOf("1\r\n#TRUE#\r\n#FALSE#\r\n\"C:E:\"\r\n0\r\n1\r\n", ""),
            "1\r\n#TRUE#\r\n#FALSE#\r\n\"C:E:\"\r\n0\r\n1\r\n");
  EXPECT_EQ(panelTextOf("\"1\"\r\nyes\r\n#NULL#\r\n7\r\n\r\n-1.5\r\n", ""),
            "\"1\"\r\n\"yes\"\r\n#NULL#\r\n\"7\"\r\n\r\n-1.5\r\n");
}

TEST(SettingsFile, ValuesSeparatedByCommasOrLineFeedsGetALineEach) {
  EXPECT_EQ(panelTextOf("1, #TRUE#,#FALSE#\n\"a \"\"b\"\":\" ,0 ,1", ""),
            "1\r\n#TRUE#\r\n#FALSE#\r\n\"a \"\"b\"\":\"\r\n0\r\n1\r\n");
}

TEST(SettingsFile, ValuesAfterTheSixthAreNotPartOfThePanel) {
  EXPECT_EQ(panelTextOf("0\r\n0\r\n0\r\n\"\"\r\n0\r\n0\r\n65535\r\n\"5\"\r\n", ""),
            "0\r\n0\r\n0\r\n\"\"\r\n0\r\n0\r\n");
}

TEST(SettingsFile, TheDrivesMustBeAStringAndThereMustBeSixValues) {
  EXPECT_EQ(errorOf("0\r\n0\r\n0\r\n#TRUE#\r\n0\r\n0\r\n"), 13);
  EXPECT_EQ(errorOf("0\r\n0\r\n0\r\n\"#TRUE#\"\r\n0\r\n0\r\n"), 0);
  EXPECT_EQ(errorOf("0\r\n0\r\n0\r\n\"\"\r\n0\r\n"), 62);
  EXPECT_EQ(errorOf(""), 62);
}

TEST(SettingsFile, TheCompactValueMustBeWhole) {
  FakeFileSystem files;
  const auto errorOfCompact = [&files](const std::string& compact) {
    files.addTextFile("C:\\plimo.ini", "0,#TRUE#,#FALSE#,\"\",0," + compact + ",1,2,3,4,5,\"6\"");
    try {
      readSettings(files, "C:\\plimo.ini");
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  };
  EXPECT_EQ(errorOfCompact("1"), 0);
  EXPECT_EQ(errorOfCompact("1.5"), 13);
  EXPECT_EQ(errorOfCompact("32768"), 6);
}

TEST(SettingsFile, ADriveThatIsNotReadyHasNoSettings) {
  FakeFileSystem files;
  files.addTextFile("C:\\plimo.ini", "");
  EXPECT_TRUE(hasSettings(files, "C:\\plimo.ini"));
  files.failExistenceCheckAt(1);
  files.failAt(1, ErrorNumber::diskNotReady);
  EXPECT_FALSE(hasSettings(files, "C:\\plimo.ini"));
  files.failExistenceCheckAt(1);
  files.failAt(1, ErrorNumber::permissionDenied);
  EXPECT_THROW(hasSettings(files, "C:\\plimo.ini"), RuntimeError);
}

TEST(SettingsFile, AnEmptyColourIsBlack) { EXPECT_EQ(UntypedValue(Field{}).colour("plimo.ini"), 0); }

TEST(SettingsFile, TheLastColourIsWrittenAsAString) {
  EXPECT_EQ(settingsText("six\r\n", {1, 2, 3, 4, 5, 6}), "six\r\n1\r\n2\r\n3\r\n4\r\n5\r\n\"6\"\r\n");
}

TEST(SettingsFile, WithoutAFileThePanelHasFiveEmptyLinesAndAnEmptyString) {
  EXPECT_EQ(emptyPanelText, "\r\n\r\n\r\n\"\"\r\n\r\n\r\n");
  EXPECT_EQ(panelTextOf(emptyPanelText, ""), emptyPanelText);
}

TEST(SettingsFile, ThePanelIsSixValuesOfTheirOwnTypes) {
  EXPECT_EQ(panelText({true, false, true, {"C", "D"}, false, true}),
            "1\r\n#FALSE#\r\n#TRUE#\r\n\"C:D:\"\r\n0\r\n1\r\n");
  EXPECT_EQ(panelText({false, true, false, {}, true, false}), "0\r\n#TRUE#\r\n#FALSE#\r\n\"\"\r\n1\r\n0\r\n");
}

}  // namespace
}  // namespace plimo
