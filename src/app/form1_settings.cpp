// What the settings file does at start-up, and the lists of drives.
#include "app/form1.h"
#include "app/settings_file.h"

namespace plimo {

bool Form1::applySettings() {
  const std::string path = ownFile(settingsName);
  const SavedSettings settings = readSettings(platform.files, path);
  Colour* const saved[] = {&fc1, &bc1, &fc2, &bc2, &fc3, &bc3};
  for (std::size_t i = 0; i < std::size(saved); ++i) *saved[i] = settings.colour(i, path);
  driveletters = settings.driveLetters;
  if (settings.useWinamp.equals(1)) {
    Check3.setValue(1);
    winamp1 = platform.files.fileExists(ownFile(winampPathName));
    if (!winamp1) runpref = true;
  }
  bool displayed = false;
  if (settings.noScan.isTrue()) {
    Option4.setValue(true);
    if (platform.files.fileExists(ownFile(catalogueName))) {
      display();
      displayed = true;
    }
  }
  if (settings.splash.equals(1)) Check4.setValue(1);
  if (settings.compact == 1) Check5.setValue(1);
  List2.setForeColour(fc1);
  List2.setBackColour(bc1);
  List1.setForeColour(fc2);
  List1.setBackColour(bc2);
  List4.setForeColour(fc3);
  List4.setBackColour(bc3);
  if (here || !settings.scan.isTrue()) return displayed;
  Option5.setValue(true);
  deleteCatalogue();
  scandrives();
  process();
  display();
  setCaption(captionAfterScan);
  return true;
}

void Form1::fillDrives(ListBox& list) {
  for (const Drive& drive : platform.files.drives()) {
    if (drive.type == DriveType::cdrom || drive.type == DriveType::fixed || drive.type == DriveType::removable) {
      list.add(std::string(1, drive.letter) + ": " + kindName(drive.type));
    }
  }
}

}  // namespace plimo
