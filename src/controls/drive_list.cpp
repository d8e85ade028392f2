#include "controls/drive_list.h"

#include <algorithm>
#include <cctype>

#include "controls/form.h"

namespace plimo {

void DriveList::refresh() {
  entries_ = source ? source() : std::vector<Entry>{};
  const bool there =
      std::any_of(entries_.begin(), entries_.end(), [this](const Entry& entry) { return entry.letter == drive_; });
  if (!there) drive_ = entries_.empty() ? '\0' : entries_.front().letter;
  notify(Property::contents);
}

void DriveList::setDrive(char letter) {
  const auto upper = [](char c) { return std::toupper(static_cast<unsigned char>(c)); };
  if (letter == 0 && drive_ != 0) {
    drive_ = 0;
    notify(Property::value);
  }
  for (const Entry& entry : entries_) {
    if (upper(entry.letter) != upper(letter)) continue;
    drive_ = entry.letter;
    notify(Property::value);
    return;
  }
}

void DriveList::userPick(char letter) {
  form().setFocus(this);
  const char before = drive_;
  setDrive(letter);
  if (!change) return;
  raise([this, before] {
    try {
      change();
    } catch (...) {
      setDrive(before);
      throw;
    }
  });
}

void DriveList::replay(ControlObserver& observer) {
  Control::replay(observer);
  observer.propertyChanged(Property::contents);
  observer.propertyChanged(Property::value);
}

}  // namespace plimo
