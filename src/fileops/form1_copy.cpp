// Copying the selected songs' files: the panel that asks where to, and the copying.
#include <vector>

#include "app/form1.h"
#include "fileops/copy_songs.h"

namespace plimo {

namespace {

// Shows the folder, or the nearest one on its way to the root that can be listed. False where there is none.
bool showNearestFolder(FileSystemObject& files, FolderList& list, std::string folder) {
  for (;;) {
    try {
      list.setPath(folder);
      return true;
    } catch (const RuntimeError&) {
      std::string parent = files.folderOf(folder);
      if (parent.empty() || parent == folder) return false;
      folder = std::move(parent);
    }
  }
}

// The drive that the folder shown stands on: the one whose root lies nearest above it.
void showDriveOf(DriveList& drives, const FolderList& folder) {
  for (const std::string& ancestor : folder.listing().ancestors) {  // the nearest comes last
    for (const DriveList::Entry& drive : drives.entries()) {
      if (drive.root == ancestor) drives.setDrive(drive.letter);
    }
  }
}

}  // namespace

void Form1::cop_Click() {
  Drive2.refresh();
  if (Dir2.path().empty() || !showNearestFolder(platform.files, Dir2, Dir2.path())) Dir2.setPath(defdir);
  showDriveOf(Drive2, Dir2);
  leaveCompactLayout();
  for (ListBox* list : {&List1, &List2, &List4, &List6}) list->setVisible(false);
  showListFrames(false);
  hidePictures();
  Frame4.setVisible(true);
}

void Form1::Drive2_Change() {
  for (const DriveList::Entry& drive : Drive2.entries()) {
    if (drive.letter == Drive2.drive()) Dir2.setPath(drive.root);
  }
}

void Form1::Dir2_Change() {}

void Form1::Command6_Click() {
  Command6.setCaption("Please Wait");
  Command6.setEnabled(false);
  if (!List1.empty()) {
    const std::vector<std::string_view> names = List1.selectedTexts();
    copySongs(platform.files, platform.progress, ownFile(catalogueName), {names, List1.selected(0)}, Dir2.path(),
              [this](std::string_view name) {
                platform.dialogs.message(
                    std::string("This file ").append(name).append(" is already present in the destination folder!"));
              });
  }
  Command7_Click();
}

void Form1::Command7_Click() {
  Command6.setCaption("Start Copying");
  Command6.setEnabled(true);
  Frame4.setVisible(false);
  for (Picture* picture : {&Picture1, &Picture2, &Picture3, &Picture7}) picture->setVisible(true);
  for (ListBox* list : {&List1, &List2, &List4}) list->setVisible(true);
  showListFrames(true);
}

}  // namespace plimo
