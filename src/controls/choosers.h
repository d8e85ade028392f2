// Lists of the machine's drives and folders. They ask a source for what they show, so that they are always true.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace plimo {

class DriveList : public Control {
 public:
  struct Entry {
    char letter = 0;
    std::string kind;  // "Hard Drive", ...
    std::string root;
  };

  DriveList(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::driveList, name, container) {}

  // Where the entries come from; set once by the program.
  std::function<std::vector<Entry>()> source;
  // Reads the entries anew; keeps the current drive where it is still there.
  void refresh();
  const std::vector<Entry>& entries() const { return entries_; }
  // The current drive's letter; 0 for none.
  char drive() const { return drive_; }
  // Makes the drive of that letter (either case) current; does nothing where there is none. Raises nothing.
  void setDrive(char letter);

  Event change;
  // Picks a drive and raises change. Where the handler fails (the drive is not ready), the drive before it stays.
  void userPick(char letter);

 protected:
  void replay(ControlObserver& observer) override;

 private:
  std::vector<Entry> entries_;
  char drive_ = 0;
};

class FolderList : public Control {
 public:
  struct Listing {
    std::string path;                    // as the machine spells it
    std::vector<std::string> ancestors;  // full paths, from the drive's root down to the folder itself
    std::vector<std::string> folders;    // full paths of the folders in it, in order
  };

  FolderList(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::folderList, name, container) {}

  // Where a folder's listing comes from; set once by the program. Throws RuntimeError where there is none.
  std::function<Listing(std::string_view folder)> source;
  const std::string& path() const { return listing_.path; }
  const Listing& listing() const { return listing_; }
  // Shows the folder. Throws what the source throws; the folder before it stays then. Raises nothing.
  void setPath(std::string_view folder);

  Event change;
  // Picks a folder and raises change.
  void userPick(std::string_view folder);

 protected:
  void replay(ControlObserver& observer) override;

 private:
  Listing listing_;
};

}  // namespace plimo
