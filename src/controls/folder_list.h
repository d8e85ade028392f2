// The list of the folders on the way to one folder and of those in it. It asks a source for them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace plimo {

class FolderList : public Control {
 public:
  struct Listing {
    std::string path;                    // as the machine spells it
    std::vector<std::string> ancestors;  // full paths, from the drive's root down to the folder itself
    std::vector<std::string> folders;    // full paths of the folders in it, in order
  };

  FolderList(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::folderList, name, container) {}

  // Provides a folder's listing; set once by the program. Throws RuntimeError if it cannot be listed.
  std::function<Listing(std::string_view folder)> source;
  const std::string& path() const { return listing_.path; }
  const Listing& listing() const { return listing_; }
  // Shows the folder. Throws what the source throws; the previous folder stays then. Raises nothing.
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
