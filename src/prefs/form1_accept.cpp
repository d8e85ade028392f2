// The settings panel's Accept.
#include <vector>

#include "app/form1.h"
#include "app/settings_file.h"
#include "base/quoted_format.h"
#include "prefs/settings_choice.h"
#include "prefs/winamp_folder.h"

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
  findWinamp();
  List2.clear();
  List1.clear();
  List4.clear();
  if (discard) {
    deleteOwnFile(settingsName);
  } else if (!writeSettings()) {
    return;
  }
  discard = false;
  if (Check6.ticked()) {
    platform.dialogs.message("Please use the slider bars to customize the colour of Plimo!");
    openColourEditor();
  } else {
    accept_Click();
  }
}

void Form1::findWinamp() {
  if (makethefile) {
    if (const auto found = winampIn(platform.files, Dir1.path())) {
      std::string content;
      writeText(content, winampPath(platform.files, Dir1.path(), *found));
      replaceWhole(platform.files, ownFile(winampPathName), content, Force::yes);
      makethefile = false;
      invalidpath = 0;
      return;
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

bool Form1::writeSettings() {
  if (List5.selectedCount() > 0) {
    Option5.setValue(true);
  } else {
    Option4.setValue(true);
    if (!platform.files.fileExists(ownFile(catalogueName))) {
      // Nothing would ever be listed. The panel stays as it stands, and the next start is a first one.
      deleteOwnFile(settingsName);
      return false;
    }
  }
  winamp1 = Check3.ticked() && platform.files.fileExists(ownFile(winampPathName)) && invalidpath != -1;
  if (Option4.value()) onlysort = true;
  std::vector<std::string_view> ticked;
  for (std::size_t row = 0; row < List5.count(); ++row) {
    if (List5.selected(row)) ticked.push_back(List5.text(row));
  }
  const std::string content = settingsText({.useWinamp = Check3.ticked(),
                                            .noScan = Option4.value(),
                                            .scan = Option5.value(),
                                            .drives = driveText(ticked),
                                            .splash = Check4.ticked(),
                                            .compact = Check5.ticked()});
  replaceWhole(platform.files, ownFile(settingsName), content, Force::yes);
  List5.clear();
  fromsettings = true;
  return true;
}

}  // namespace plimo
