#include "desktop/binders/binder.h"
#include "desktop/widgets/folder_view.h"

namespace plimo {

namespace {

class FolderBinder : public Binder {
 public:
  FolderBinder(FolderList& folders, QWidget* parent) : Binder(folders, new FolderView(folders, parent)) {}

 protected:
  void changed(Property property) override {
    if (property == Property::contents) static_cast<FolderView*>(widget())->fill();
  }
};

}  // namespace

std::unique_ptr<Binder> bindFolderList(FolderList& folders, QWidget* parent) {
  return makeBinder<FolderBinder>(folders, parent);
}

}  // namespace plimo
