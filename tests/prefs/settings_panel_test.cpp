// Effects of the settings panel, the colour editor and the welcome that are not visible on the window.
#include <gtest/gtest.h>

#include "support/test_program.h"

namespace plimo {
namespace {

constexpr auto settingsFile = R"(C:\Plimo\plimo.ini)";
constexpr auto winampFile = R"(C:\Plimo\path.kvx)";
constexpr auto catalogueFile = R"(C:\Plimo\plimo.kvx)";

class SettingsPanel : public testing::Test {
 protected:
  explicit SettingsPanel(bool winamp = false) : test_(winamp) {
    test_.addSong(R"(C:\Music\Abba - Waterloo.mp3)");
    test_.files.addFolder(R"(C:\Empty)");
    test_.program.start();
  }

  void openPreferences() { form().Preferences.userClick(); }
  void accept() { form().Command5.userClick(); }
  void openEditor() {
    openPreferences();
    form().Check6.setValue(1);
    accept();
  }
  Form1& form() { return test_.form(); }

  TestProgram test_;
};

class WinampPanel : public SettingsPanel {
 protected:
  WinampPanel() : SettingsPanel(true) {}
};

TEST_F(SettingsPanel, AnAcceptThatDiscardsStoresTheColoursAfterEmptySettings) {
  openPreferences();
  form().discard = true;
  form().Check4.userClick();
  accept();
  EXPECT_FALSE(form().discard);
  EXPECT_EQ(test_.files.fileContent(settingsFile),
            "\r\n\r\n\r\n\"\"\r\n\r\n\r\n65535\r\n4194304\r\n65535\r\n4194304\r\n65535\r\n\"4194304\"\r\n");
}

TEST_F(SettingsPanel, AnAcceptThatDiscardsWritesNoSettingsBeforeTheEditor) {
  openPreferences();
  form().discard = true;
  form().Check6.setValue(1);
  accept();
  EXPECT_EQ(test_.files.fileContent(settingsFile), std::nullopt);
  EXPECT_FALSE(form().fromsettings);
}

TEST_F(SettingsPanel, TheListsShowSamplesFromAcceptUntilTheEditorIsLeft) {
  EXPECT_FALSE(form().fromsettings);
  openPreferences();
  EXPECT_FALSE(form().fromsettings);
  form().Check6.setValue(1);
  accept();
  EXPECT_TRUE(form().fromsettings);
  form().accept.userClick();
  EXPECT_FALSE(form().fromsettings);
}

TEST_F(SettingsPanel, OnlyAnAcceptWithoutAScanSetsOnlySort) {
  openPreferences();
  form().List5.userTick(0, true);
  accept();
  EXPECT_FALSE(form().onlysort);
  openPreferences();
  form().Option4.userClick();
  accept();
  EXPECT_TRUE(form().onlysort);
}

TEST_F(SettingsPanel, WinampIsSearchedForUntilItIsFound) {
  openPreferences();
  form().Check3.userClick();
  EXPECT_TRUE(form().makethefile);
  form().Dir1.setPath(R"(C:\Empty)");
  accept();
  EXPECT_TRUE(form().makethefile);
  EXPECT_EQ(form().invalidpath, -1);
  EXPECT_FALSE(form().winamp1);
  openPreferences();
  test_.files.addFile(R"(C:\Empty\winamp.exe)");
  accept();
  EXPECT_FALSE(form().makethefile);
  EXPECT_EQ(form().invalidpath, 0);
  EXPECT_TRUE(form().winamp1);
}

TEST_F(SettingsPanel, UntickingWinampClearsTheInvalidPath) {
  openPreferences();
  form().Check3.userClick();
  form().Dir1.setPath(R"(C:\Empty)");
  accept();
  openPreferences();
  form().Check3.userClick();
  EXPECT_FALSE(form().makethefile);
  accept();
  EXPECT_EQ(form().invalidpath, 0);
}

TEST_F(SettingsPanel, AMissingWinampIsSwitchedOffEvenIfThereIsNothingToList) {
  form().winamp1 = true;
  openPreferences();
  form().Check3.userClick();
  form().Dir1.setPath(R"(C:\Empty)");
  test_.files.remove(catalogueFile);
  accept();
  EXPECT_EQ(test_.files.fileContent(settingsFile), std::nullopt);
  EXPECT_FALSE(form().winamp1);
}

// The path file cannot be deleted, but must be ignored.
TEST_F(WinampPanel, AWinampNotFoundIsNotUsedEvenIfItsOldPathFileRemains) {
  test_.files.addTextFile(winampFile, "\"C:\\Empty\\winamp.exe\"\r\n", {.locked = true});
  openPreferences();
  form().Dir1.setPath(R"(C:\Empty)");
  accept();
  EXPECT_TRUE(test_.files.fileContent(winampFile).has_value());
  EXPECT_FALSE(form().winamp1);
}

TEST_F(SettingsPanel, TheTemporarySettingsFileIsRemovedAfterAFailure) {
  openEditor();
  const auto before = test_.files.fileContent(settingsFile);
  // Steps: read the old settings; create, write and rename the temporary file; create the new settings.
  test_.files.failAt(5, ErrorNumber::pathFileAccess);
  form().accept.userClick();
  ASSERT_EQ(test_.dialogs.reports.size(), 1U);
  EXPECT_NE(test_.dialogs.reports[0].find(settingsFile), std::string::npos) << test_.dialogs.reports[0];
  EXPECT_EQ(test_.files.fileContent(R"(C:\Plimo\plimo2.ini)"), std::nullopt);
  EXPECT_EQ(test_.files.fileContent(settingsFile), before);
  EXPECT_TRUE(form().accept.visible());
}

TEST_F(SettingsPanel, EverySliderEventColoursTheList) {
  openEditor();
  form().Option1.userClick();
  form().Check1.userClick();
  Slider* const sliders[] = {&form().Slider1, &form().Slider2, &form().Slider3};
  const Colour weights[] = {1, 256, 65536};
  for (std::size_t i = 0; i < 3; ++i) {
    for (const Event* event : {&sliders[i]->change, &sliders[i]->scroll, &sliders[i]->click, &sliders[i]->keyUp}) {
      sliders[i]->setValue(7);
      form().List2.setForeColour(1);
      (*event)();
      EXPECT_EQ(form().List2.foreColour(), 7 * weights[i]);
      sliders[i]->setValue(0);
    }
  }
}

TEST_F(SettingsPanel, NotScanningCanBeChosenIfThereAreSettings) {
  form().Option4.setVisible(false);
  openPreferences();
  EXPECT_TRUE(form().Option4.showing());
}

TEST_F(SettingsPanel, TheWelcomeEnablesThePlayer) {
  test_.player.setEnabled(false);
  form().plimo.userClick();
  EXPECT_TRUE(test_.player.enabled());
  test_.player.setEnabled(false);
  form().Command19.userClick();
  EXPECT_FALSE(test_.player.enabled());
  EXPECT_TRUE(form().Command00.visible());
  EXPECT_FALSE(form().Command19.visible());
  form().Command00_Click();
  EXPECT_TRUE(test_.player.enabled());
}

}  // namespace
}  // namespace plimo
