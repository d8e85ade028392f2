// Deletes the song files of the scratch playlist's rows.
#include "base/text.h"
#include "catalogue/catalogue_file.h"
#include "fileops/delete_songs.h"
#include "window/form1.h"

namespace plimo {

void Form1::Command10_Click() {
  foldSongStrip();
  if (sureToDelete("You are gonna have to say goodbye to the selected files! You sure ??", List1.selectedTexts())) {
    deleteselectedfiles();
  }
}

void Form1::Command15_Click() {
  if (sureToDelete("You are gonna have to say goodbye to all the files in this list! You sure ??", List1.texts())) {
    deleteallfiles();
  }
}

void Form1::ds_Click() { Command10_Click(); }

void Form1::deleteselectedfiles() {
  List3.assign(List1, List1.selectedRows());
  deleteFilesOf(List3, "The File(s) could not be deleted due to some mysterical problem!");
}

void Form1::deleteallfiles() {
  deleteFilesOf(List1, "The file(s) could not be deleted due to some mysterical problem!");
}

bool Form1::sureToDelete(const char* question, const std::vector<std::string_view>& names) {
  std::string extent;
  try {
    deletion_ = std::make_shared<SongDeletion>(platform.files, ownFile(catalogueName), names);
    const SongFiles found = deletion_->extent();
    extent = counted(found.files, "file") + " in " + counted(found.folders, "folder") + " will be deleted.";
  } catch (const RuntimeError&) {  // the deletion tries again and reports it
  }
  const bool sure = platform.dialogs.ask({question, extent, Question::Default::no});
  if (!sure) deletion_.reset();
  Form_MouseMove();
  return sure;
}

void Form1::deleteFilesOf(const ListBox& list, const char* failureMessage) {
  std::size_t deleted = 0;
  std::string failure;
  try {
    if (!deletion_) {
      deletion_ = std::make_shared<SongDeletion>(platform.files, ownFile(catalogueName), list.texts());
    }
    deletion_->run(platform.progress, deleted);
  } catch (const RuntimeError& error) {
    failure = std::string(", then stopped: ").append(error.what());
    platform.dialogs.message(failureMessage);
  }
  deletion_.reset();
  const std::string outcome = counted(deleted, "file") + " deleted" + failure;
  setStatus(outcome);
  if (closing()) return;
  offerScan();
  if (status() != outcome) setStatus(outcome + ", " + status());  // the scan has skipped folders
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

}  // namespace plimo
