#include "controls/folder_list.h"

#include "controls/form.h"

namespace plimo {

void FolderList::setPath(std::string_view folder) {
  if (!source) return;
  listing_ = source(folder);
  notify(Property::contents);
}

void FolderList::userPick(std::string_view folder) {
  form().setFocus(this);
  raise([this, folder] {
    setPath(folder);
    if (change) change();
  });
}

void FolderList::replay(ControlObserver& observer) {
  Control::replay(observer);
  observer.propertyChanged(Property::contents);
}

}  // namespace plimo
