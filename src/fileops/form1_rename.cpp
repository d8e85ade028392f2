// Renames the song file of the scratch playlist's current row.
#include "catalogue/song_lookup.h"
#include "fileops/rename_target.h"
#include "window/form1.h"

namespace plimo {

// The path of the current row's song. Throws 53 if there is no current row or no record of the song.
std::string Form1::currentSong() {
  std::optional<std::string> path;
  if (List1.current()) {
    path = firstPath(platform.files, ownFile(catalogueName), List1.currentText());
  }
  if (!path) throw RuntimeError(ErrorNumber::fileNotFound, List1.currentText());
  return *path;
}

// In one step if the machine can; otherwise the old file is deleted only after the new one is complete. False if the
// user has closed the window meanwhile: nothing has changed then.
bool Form1::moveSong(const std::string& from, const std::string& to) {
  if (platform.files.moveFile(from, to)) return true;
  ProgressScope scope(platform.progress, Task::copy);
  const bool complete = platform.files.copyFile(from, to, true, [&](std::uint64_t copied, std::uint64_t size) {
    return scope.update({.done = 1, .total = 1, .name = platform.files.fileName(to), .bytes = copied, .size = size});
  });
  if (complete) platform.files.deleteFile(from, Force::no);
  return complete;
}

void Form1::rename_Click() {
  const std::string path = currentSong();
  const std::string name = platform.dialogs.input("Rename",
                                                  "Please enter the new name for this file (without the extension) \r\n"
                                                  "EXISTING FILES WILL BE OVERWRITTEN SO DON'T BLAME ME LATER!",
                                                  std::string(proposedName(platform.files.fileName(path))));
  if (name.empty()) return;
  if (!moveSong(path, renamedPath(platform.files, path, name))) return;
  List1.remove(*List1.current());
  if (!platform.dialogs.question(
          "Would you like to Re-scan your hard drive to incorporate the changes (RECOMMENDED)?")) {
    return;
  }
  if (Option4.value()) {
    platform.dialogs.message(
        "You have chosen not to scan any drive in 'Preferences'. Please choose to scan this drive in preferences to "
        "incorporate the changes");
  }
  Scan_Click();
}

}  // namespace plimo
