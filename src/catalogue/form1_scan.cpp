// The scan of the chosen drives, and the commands that start one.
#include "app/form1.h"
#include "app/settings_file.h"
#include "base/text.h"
#include "catalogue/song_name.h"

namespace plimo {

namespace {

// Levels of subfolders that are searched below a drive's root.
constexpr int searchedLevels = 10;

}  // namespace

void Form1::scandrives() {
  const std::string settings = ownFile(settingsName);
  const bool settled = platform.files.fileExists(settings);
  if (settled) driveletters = readSettings(platform.files, settings).driveLetters;
  for (ListBox* list : {&List1, &List2, &List3, &List4}) list->clear();

  const std::vector<Drive> drives = platform.files.drives();
  std::vector<std::string> roots;
  if (!otherdrives) {
    for (const Drive& drive : drives) {
      if (!drive.ready) continue;
      if (!settled) roots.push_back(drive.root);
      for (const std::string& letter : driveletters) {
        if (settled && letter == std::string_view(&drive.letter, 1)) roots.push_back(drive.root);
      }
    }
  } else {
    otherdrives = false;
    for (std::size_t row = 0; row < List7.count(); ++row) {
      if (!List7.selected(row)) continue;
      const std::string_view letter = prefixBefore(List7.text(row), ':');
      for (const Drive& drive : drives) {
        if (drive.ready && letter == std::string_view(&drive.letter, 1)) roots.push_back(drive.root);
      }
    }
  }
  const ProgressScope scope(platform.progress, Task::scan);
  for (const std::string& root : roots) {
    if (!findsubfolder(root)) break;
  }
}

bool Form1::findsubfolder(std::string_view folder) {
  std::string inside;
  const auto goOn = [&] {
    platform.progress.update({.done = List3.count(), .name = inside});
    return !platform.progress.cancelled();
  };
  return platform.files.walk(
      folder, searchedLevels, isSongFile,
      [&](std::string_view song) {
        List3.add(song);
        return goOn();
      },
      [&](std::string_view entered) {
        inside = entered;
        return goOn();
      });
}

void Form1::Scan_Click() {
  const bool scan = !Option4.value();
  if (scan) deleteCatalogue();
  for (ListBox* list : {&List1, &List2, &List3, &List4}) list->clear();
  artists.clear();
  if (scan) {
    deleteCatalogue();
    scandrives();
    process();
  }
  display();
}

void Form1::sodf_Click() {
  leaveCompactLayout();
  foldAllStrips();
  hidePictures();
  List2.setVisible(false);
  List1.setVisible(false);
  showListFrames(false);
  finalList().setVisible(false);
  Frame5.setVisible(true);
  List7.clear();
  fillDrives(List7);
}

void Form1::Command17_Click() {
  if (!Option4.value()) deleteCatalogue();
  for (ListBox* list : {&List1, &List2, &List3, &List4}) list->clear();
  artists.clear();
  Frame5.setVisible(false);
  otherdrives = true;
  scandrives();
  process();
  display();
}

void Form1::Command18_Click() {
  Frame5.setVisible(false);
  for (Picture* picture : {&Picture1, &Picture2, &Picture3}) picture->setVisible(true);
  for (Picture* picture : {&Picture4, &Picture5, &Picture6, &Picture7}) picture->setVisible(false);
  for (ListBox* list : {&List2, &List1, &List4}) list->setVisible(true);
  List6.setVisible(false);
  showListFrames(true);
}

}  // namespace plimo
