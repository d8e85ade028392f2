// Deletes the song files of the scratch playlist's rows.
#include "catalogue/catalogue_file.h"
#include "fileops/delete_songs.h"
#include "window/form1.h"

namespace plimo {

void Form1::Command10_Click() {
  foldSongStrip();
  const bool sure = platform.dialogs.question("You are gonna have to say goodbye to the selected files! You sure ??");
  Form_MouseMove();
  if (sure) deleteselectedfiles();
}

void Form1::Command15_Click() {
  const bool sure =
      platform.dialogs.question("You are gonna have to say goodbye to all the files in this list! You sure ??");
  Form_MouseMove();
  if (sure) deleteallfiles();
}

void Form1::ds_Click() { Command10_Click(); }

void Form1::deleteselectedfiles() {
  List3.assign(List1, List1.selectedRows());
  deleteFilesOf(List3, "The File(s) could not be deleted due to some mysterical problem!");
}

void Form1::deleteallfiles() {
  deleteFilesOf(List1, "The file(s) could not be deleted due to some mysterical problem!");
}

void Form1::offerScan() {
  if (!platform.dialogs.question("The Files have been deleted! Do you want to re-scan your hard drive for Mp3s? ")) {
    return;
  }
  if (Option4.value()) {
    platform.dialogs.message(
        "You have chosen not to scan any drive in 'Preferences'. Please choose to scan this drive in preferences to "
        "incorporate the changes");
  } else {
    Scan_Click();
  }
}

void Form1::deleteFilesOf(const ListBox& list, const char* failureMessage) {
  try {
    deleteSongs(platform.files, platform.progress, ownFile(catalogueName), list.texts());
  } catch (const RuntimeError&) {
    platform.dialogs.message(failureMessage);
  }
  offerScan();
}

}  // namespace plimo
