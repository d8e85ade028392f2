// The settings panel: opening it, and keeping its controls consistent.
#include "base/text.h"
#include "prefs/winamp_folder.h"
#include "settings/settings_file.h"
#include "settings/winamp_path.h"
#include "window/drive_rows.h"
#include "window/form1.h"

namespace plimo {

void Form1::Preferences_Click() {
  constexpr auto warning =
      " I think you should save your final playlist before entering the 'Preferences' section otherwise the playlist "
      "may be cleared! Would you like to enter the 'Preferences' section anyway ? ";
  if ((!List4.empty() || !List6.empty()) && !platform.dialogs.question(warning)) return;
  leaveCompactLayout();
  rememberPanel();
  offerAccept();
  showListFrames(false);
  hidePictures();
  Frame1.setVisible(true);
  if (Drive1.visible()) Drive1.refresh();  // it may still be visible from the previous opening
  if (checkedFileExists(platform.files, ownFile(settingsName))) showSettings();
  hidemainview();
  List5.clear();
  fillDrives(List5);
  tickDrivesToScan();
  setFocus(Option5.value() ? &Option5 : &Option4);
}

// An Accept that has stopped leaves the button waiting.
void Form1::offerAccept() {
  Command5.setCaption("Accept");
  Command5.setEnabled(true);
}

void Form1::rememberPanel() {
  if (Frame1.visible()) return;  // an opening that failed has remembered it
  finalListAtOpening_ = &finalList();
  panelAtOpening_ = {Option4.value(), Option5.value(), makethefile,   Check3.value(),
                     Check4.value(),  Check5.value(),  Check6.value()};
}

void Form1::showSettings() {
  Option4.setVisible(true);
  const SavedSettings settings = readSettings(platform.files, ownFile(settingsName));
  driveLetters_ = settings.driveLetters;
  const bool winamp = settings.useWinamp.equals(1);
  Check3.setValue(winamp ? 1 : 0);
  showWinampChooser(winamp);
  makethefile = winamp;
  if (winamp && platform.files.fileExists(ownFile(winampPathName))) showWinampFolder();
  Option4.setValue(settings.noScan.isTrue());
  Check4.setValue(settings.splash.equals(1) ? 1 : 0);
  Check5.setValue(settings.compact == 1 ? 1 : 0);
  Option5.setValue(settings.scan.isTrue());
}

void Form1::showWinampChooser(bool visible) {
  if (visible) {
    Drive1.refresh();
    if (Dir1.path().empty()) Dir1.setPath(defdir);  // never shown before
    Drive1.setDrive(driveHolding(platform.files, Dir1.path()));
  }
  Label1.setVisible(visible);
  Drive1.setVisible(visible);
  Dir1.setVisible(visible);
}

void Form1::showWinampFolder() {
  const std::string winamp = readWinampPath(platform.files, ownFile(winampPathName));
  const auto folder = folderOfWinamp(platform.files, winamp);
  if (!folder) return;  // its drive does not exist or is not ready
  Drive1.setDrive(driveHolding(platform.files, *folder));
  Dir1.setPath(*folder);
}

void Form1::tickDrivesToScan() {
  for (std::size_t row = 0; row < List5.count(); ++row) {
    for (const std::string& letter : driveLetters_) {
      if (compareFolded(driveLetterOf(List5.text(row)), letter) == 0) List5.setSelected(row, true);
    }
  }
}

void Form1::Check3_Click() {
  showWinampChooser(Check3.ticked());
  makethefile = Check3.ticked();
}

void Form1::Drive1_Change() { showDrive(Drive1, Dir1); }

void Form1::List5_Click() {
  if (List5.selectedCount() == 0) return;
  Option5.setValue(true);
  offerAccept();
}

void Form1::List5_DblClick() { List5_Click(); }

// A row's tick is its selected state: they cannot differ.
void Form1::List5_ItemCheck(std::size_t) {}

void Form1::Option4_Click() { List5.clearSelection(); }

void Form1::Command16_Click() {
  settingscancelled = true;
  Option4.setValue(panelAtOpening_.noScan);
  Option5.setValue(panelAtOpening_.scan);
  makethefile = panelAtOpening_.makethefile;
  Check3.setValue(panelAtOpening_.winamp);
  Check4.setValue(panelAtOpening_.splash);
  Check5.setValue(panelAtOpening_.compact);
  Check6.setValue(panelAtOpening_.colours);
  showWinampChooser(Check3.ticked());
  leavesettings();
}

}  // namespace plimo
