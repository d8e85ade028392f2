// Renaming the song file behind the scratch playlist's current row.
#include "app/form1.h"
#include "catalogue/song_lookup.h"
#include "fileops/rename_target.h"

namespace plimo {

namespace {

// Throws 53 where the list has no current row, or the catalogue no such song.
std::string currentSong(Form1& form) {
  std::optional<std::string> path;
  if (form.List1.current()) {
    path = firstPath(form.platform.files, form.ownFile(catalogueName), form.List1.currentText());
  }
  if (!path) throw RuntimeError(ErrorNumber::fileNotFound, form.List1.currentText());
  return *path;
}

// The old file goes only when the new one stands there whole.
void moveFile(Form1& form, const std::string& from, const std::string& to) {
  FileSystemObject& files = form.platform.files;
  ProgressScope progress(form.platform.progress, Task::copy);
  files.copyFile(from, to, true, [&](std::uint64_t copied, std::uint64_t size) {
    progress.update({.done = 1, .total = 1, .name = files.fileName(to), .bytes = copied, .size = size});
  });
  files.deleteFile(from, Force::no);
}

}  // namespace

void Form1::rename_Click() {
  const std::string path = currentSong(*this);
  const std::string name = platform.dialogs.input("Rename",
                                                  "Please enter the new name for this file (without the extension) \r\n"
                                                  "EXISTING FILES WILL BE OVERWRITTEN SO DON'T BLAME ME LATER!",
                                                  std::string(proposedName(platform.files.fileName(path))));
  if (name.empty()) return;
  moveFile(*this, path, renamedPath(platform.files, path, name));
  List1.remove(*List1.current());
  if (!platform.dialogs.question(
          "Would you like to Re-scan your hard drive to incorporate the changes (RECOMMENDED)?")) {
    return;
  }
  if (Option5.value()) deleteCatalogue();
  if (Option4.value()) {
    platform.dialogs.message(
        "You have chosen not to scan any drive in 'Preferences'. Please choose to scan this drive in preferences to "
        "incorporate the changes");
  }
  List1.clear();
  Scan_Click();
}

}  // namespace plimo
