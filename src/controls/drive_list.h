// The list of the machine's drives. It asks a source for its entries, so that they are always current.
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

  // Provides the entries; set once by the program.
  std::function<std::vector<Entry>()> source;
  // Reads the entries again; keeps the current drive if it still exists, else takes the first.
  void refresh();
  const std::vector<Entry>& entries() const { return entries_; }
  // The current drive's letter; 0 for none.
  char drive() const { return drive_; }
  // Makes the drive of that letter (in either case) current, or none for 0; does nothing if there is no such drive.
  // Raises nothing.
  void setDrive(char letter);

  Event change;
  // Picks a drive and raises change. If the handler throws (the drive is not ready), the previous drive stays.
  void userPick(char letter);

 protected:
  void replay(ControlObserver& observer) override;

 private:
  std::vector<Entry> entries_;
  char drive_ = 0;
};

}  // namespace plimo
