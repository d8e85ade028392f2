// Applies the settings file at start-up.
#include <tuple>

#include "catalogue/catalogue_file.h"
#include "settings/settings_file.h"
#include "settings/winamp_path.h"
#include "window/caption.h"
#include "window/form1.h"

namespace plimo {

bool Form1::applySettings() {
  const std::string path = ownFile(settingsName);
  const SavedSettings settings = readSettings(platform.files, path);
  const ColourScheme scheme = settings.scheme(path);
  std::tie(fc1, bc1, fc2, bc2, fc3, bc3) = std::tuple_cat(scheme);
  driveLetters_ = settings.driveLetters;
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
  setCaption(creditCaption);
  return true;
}

}  // namespace plimo
