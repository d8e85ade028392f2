// The scan of the chosen drives, and the commands that start one.
#include <span>
#include <utility>

#include "base/text.h"
#include "catalogue/song_name.h"
#include "settings/settings_file.h"
#include "window/drive_rows.h"
#include "window/form1.h"

namespace plimo {

namespace {

// Levels of subfolders that are searched below a drive's root.
constexpr int searchedLevels = 10;

bool isReady(const Drive& drive, std::string_view letter) {
  return drive.ready && letter == std::string_view(&drive.letter, 1);
}

// The roots of the drives that are ready; with letters, of those only, as often as each is named.
std::vector<std::string> rootsInOrderOfDrives(const std::vector<Drive>& drives,
                                              const std::vector<std::string>* letters) {
  std::vector<std::string> roots;
  for (const Drive& drive : drives) {
    if (letters == nullptr && drive.ready) roots.push_back(drive.root);
    if (letters == nullptr) continue;
    for (const std::string& letter : *letters) {
      if (isReady(drive, letter)) roots.push_back(drive.root);
    }
  }
  return roots;
}

std::vector<std::string> rootsInOrderOfRows(const std::vector<Drive>& drives, std::span<const std::string_view> rows) {
  std::vector<std::string> roots;
  for (const std::string_view row : rows) {
    for (const Drive& drive : drives) {
      if (isReady(drive, driveLetterOf(row))) roots.push_back(drive.root);
    }
  }
  return roots;
}

}  // namespace

void Form1::scandrives() {
  const std::string settings = ownFile(settingsName);
  const bool hasSettings = checkedFileExists(platform.files, settings);
  if (hasSettings) driveLetters_ = readSettings(platform.files, settings).driveLetters;
  for (ListBox* list : {&List1, &List2, &List3, &List4}) list->clear();

  std::vector<std::string> roots;
  if (std::exchange(otherDrives_, false)) {
    roots = rootsInOrderOfRows(platform.files.drives(), List7.selectedTexts());
  } else {
    roots = rootsInOrderOfDrives(platform.files.drives(), hasSettings ? &driveLetters_ : nullptr);
  }
  skipAllFolders_ = false;
  skippedFolders_ = 0;
  const ProgressScope scope(platform.progress, Task::scan);
  for (const std::string& root : roots) {
    if (!findsubfolder(root)) break;
  }
  if (skippedFolders_ > 0) setStatus(counted(skippedFolders_, "folder") + " skipped");
}

bool Form1::findsubfolder(std::string_view folder) {
  std::string inside;
  const auto goOn = [&] {
    platform.progress.update({.done = List3.count(), .name = inside});
    return !platform.progress.cancelled();
  };
  WalkVisitor visitor;
  visitor.wanted = isSongFile;
  visitor.found = [&](std::string_view song) {
    List3.add(song);
    return goOn();
  };
  visitor.entered = [&](std::string_view entered) {
    inside = entered;
    return goOn();
  };
  visitor.waiting = visitor.entered;
  visitor.unreadable = [this](const RuntimeError& error) { return skipFolder(error.path()); };
  return platform.files.walk(folder, searchedLevels, visitor);
}

bool Form1::skipFolder(const std::string& folder) {
  if (!skipAllFolders_) {
    const FolderAnswer answer = platform.dialogs.askAboutFolder(folder);
    if (answer == FolderAnswer::stop) return false;
    skipAllFolders_ = answer == FolderAnswer::skipAll;
  }
  ++skippedFolders_;
  return true;
}

void Form1::clearForScan() {
  if (!Option4.value()) deleteCatalogue();
  for (ListBox* list : {&List1, &List2, &List3, &List4}) list->clear();
  artists_.clear();
}

void Form1::Scan_Click() {
  const bool scan = !Option4.value();
  clearForScan();
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
  clearForScan();
  Frame5.setVisible(false);
  otherDrives_ = true;
  scandrives();
  process();
  display();
}

void Form1::Command18_Click() {
  Frame5.setVisible(false);
  for (Picture* picture : {&Picture1, &Picture2, &Picture3}) picture->setVisible(true);
  for (Picture* picture : {&Picture4, &Picture5, &Picture6, &Picture7}) picture->setVisible(false);
  for (ListBox* list : {&List2, &List1}) list->setVisible(true);
  returnToList4();
  showListFrames(true);
}

}  // namespace plimo
