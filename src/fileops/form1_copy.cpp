// Copies the files of the selected songs: the panel that asks for the folder, and the command.
#include <vector>

#include "base/text.h"
#include "catalogue/catalogue_file.h"
#include "fileops/copy_songs.h"
#include "window/form1.h"

namespace plimo {

namespace {

// Shows the folder, or its nearest ancestor that can be listed. False if there is none.
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

// Selects the drive of the folder shown, the one whose root is its nearest ancestor; none for a folder on no drive.
void showDriveOf(DriveList& drives, const FolderList& folder) {
  char letter = 0;
  for (const std::string& ancestor : folder.listing().ancestors) {  // the nearest comes last
    for (const DriveList::Entry& drive : drives.entries()) {
      if (drive.root == ancestor) letter = drive.letter;
    }
  }
  drives.setDrive(letter);
}

// A box for each file; from the second one on the user can silence the rest.
PresentFile presentFileMessages(Dialogs& dialogs) {
  return [&dialogs, first = true, silent = false](std::string_view name) mutable {
    if (silent) return;
    const std::string text =
        "This file " + elideMiddle(name, longestShownText) + " is already present in the destination folder!";
    if (first) {
      dialogs.message(text);
    } else {
      silent = dialogs.repeatedMessage(text);
    }
    first = false;
  };
}

}  // namespace

void Form1::cop_Click() {
  Drive2.refresh();
  if (Dir2.path().empty() || !showNearestFolder(platform.files, Dir2, Dir2.path())) Dir2.setPath(defdir);
  showDriveOf(Drive2, Dir2);
  showCopyTarget();
  leaveCompactLayout();
  finalList().setVisible(false);
  for (ListBox* list : {&List1, &List2}) list->setVisible(false);
  showListFrames(false);
  hidePictures();
  Frame4.setVisible(true);
}

void Form1::showCopyTarget() { CopyTarget.setCaption("Copies go to " + elideMiddle(Dir2.path(), longestShownText)); }

void Form1::Drive2_Change() {
  showDrive(Drive2, Dir2);
  showCopyTarget();
}

void Form1::Dir2_Change() { showCopyTarget(); }

void Form1::Command6_Click() {
  Command6.setCaption("Please Wait");
  Command6.setEnabled(false);
  std::string status;
  if (!List1.empty()) {
    const std::string folder = Dir2.path();
    const std::vector<std::string_view> names = List1.selectedTexts();
    const CopyResult result = copySongs(platform.files, platform.progress, ownFile(catalogueName),
                                        {names, List1.selected(0)}, folder, presentFileMessages(platform.dialogs));
    status = copyStatus(result, folder);
  }
  Command7_Click();
  setStatus(status);
}

void Form1::Command7_Click() {
  Command6.setCaption("Start Copying");
  Command6.setEnabled(true);
  Frame4.setVisible(false);
  for (Picture* picture : {&Picture1, &Picture2, &Picture3, &Picture7}) picture->setVisible(true);
  for (ListBox* list : {&List1, &List2}) list->setVisible(true);
  returnToList4();
  showListFrames(true);
}

}  // namespace plimo
