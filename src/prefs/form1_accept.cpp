// Accept of the settings panel.
#include <utility>

#include "catalogue/catalogue_file.h"
#include "prefs/winamp_folder.h"
#include "settings/settings_file.h"
#include "settings/winamp_path.h"
#include "window/drive_rows.h"
#include "window/form1.h"

namespace plimo {

void Form1::Command5_Click() {
  if (List5.selectedCount() == 0 && !Option4.enabled()) {
    platform.dialogs.message("You will have to select atleast 1 drive to scan for Mp3s!");
    return;
  }
  Option4.setEnabled(true);
  Command5.setCaption("Please Wait");
  Command5.setEnabled(false);
  pause(std::chrono::milliseconds(0));  // shows the caption
  try {
    acceptSettings();
  } catch (...) {
    offerAccept();
    throw;
  }
}

void Form1::acceptSettings() {
  findWinamp();
  List2.clear();
  List1.clear();
  List4.clear();
  const bool discarded = std::exchange(discard, false);
  if (discarded) {
    deleteOwnFile(settingsName);
  } else if (!writeChosenSettings()) {
    return;
  }
  if (Check6.ticked()) {
    platform.dialogs.message("Please use the slider bars to customize the colour of Plimo!");
    openColourEditor();
  } else if (discarded) {
    accept_Click();
  } else {
    deleteOwnFile(temporarySettingsName);
    leavesettings();
  }
}

void Form1::findWinamp() {
  if (makethefile) {
    if (const auto found = winampIn(platform.files, Dir1.path())) {
      writeWinampPath(platform.files, ownFile(winampPathName), winampPath(platform.files, Dir1.path(), *found));
      makethefile = false;
      invalidpath = 0;
    }
  }
  if (!Check3.ticked()) {
    invalidpath = 0;
  } else if (makethefile) {
    platform.dialogs.message("Winamp was not found in the selected directory! Try again later!");
    invalidpath = -1;
    winamp1 = false;
    deleteOwnFile(winampPathName);
  }
}

bool Form1::writeChosenSettings() {
  if (List5.selectedCount() > 0) {
    Option5.setValue(true);
  } else {
    Option4.setValue(true);
    if (!checkedFileExists(platform.files, ownFile(catalogueName))) {
      // Nothing would ever be listed. The panel stays as it is, and the next start is a first one.
      deleteOwnFile(settingsName);
      return false;
    }
  }
  const bool winamp = Check3.ticked() && platform.files.fileExists(ownFile(winampPathName)) && invalidpath != -1;
  PanelSettings panel{.useWinamp = Check3.ticked(),
                      .noScan = Option4.value(),
                      .scan = Option5.value(),
                      .driveLetters = {},
                      .splash = Check4.ticked(),
                      .compact = Check5.ticked()};
  for (const std::string_view row : List5.selectedTexts()) panel.driveLetters.emplace_back(driveLetterOf(row));
  if (Check6.ticked()) {
    writePanelSettings(platform.files, ownFile(settingsName), panel);  // the colour editor completes it
  } else {
    writeSettings(platform.files, ownFile(settingsName), panel, listColours());
  }
  // Only now do the choices hold: a panel whose settings could not be written may still be cancelled.
  winamp1 = winamp;
  if (panel.noScan) onlysort = true;
  List5.clear();
  fromsettings = true;
  return true;
}

}  // namespace plimo
