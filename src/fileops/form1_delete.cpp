// Deleting the song files behind the scratch playlist's rows.
#include "app/form1.h"
#include "fileops/delete_songs.h"

namespace plimo {

namespace {

void offerScan(Form1& form) {
  if (!form.platform.dialogs.question(
          "The Files have been deleted! Do you want to re-scan your hard drive for Mp3s? ")) {
    return;
  }
  if (form.Option4.value()) {
    form.platform.dialogs.message(
        "You have chosen not to scan any drive in 'Preferences'. Please choose to scan this drive in preferences to "
        "incorporate the changes");
  } else {
    form.Scan_Click();
  }
}

void deleteFilesOf(Form1& form, const ListBox& list, const char* failureMessage) {
  try {
    deleteSongs(form.platform.files, form.platform.progress, form.ownFile(catalogueName), list.texts());
  } catch (const RuntimeError&) {
    form.platform.dialogs.message(failureMessage);
  }
  offerScan(form);
}

}  // namespace

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
  deleteFilesOf(*this, List3, "The File(s) could not be deleted due to some mysterical problem!");
}

void Form1::deleteallfiles() {
  deleteFilesOf(*this, List1, "The file(s) could not be deleted due to some mysterical problem!");
}

}  // namespace plimo
