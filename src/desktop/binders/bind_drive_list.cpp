#include "desktop/binders/binder.h"
#include "desktop/widgets/drive_box.h"

namespace plimo {

namespace {

class DriveBinder : public Binder {
 public:
  DriveBinder(DriveList& drives, QWidget* parent)
      : Binder(drives, new DriveBox(parent)), drives_(drives), box_(static_cast<DriveBox*>(widget())) {
    QObject::connect(box_, &QComboBox::activated, box_, [this](int row) {
      if (const char letter = box_->driveAt(row); letter != 0) drives_.userPick(letter);
      box_->setCurrentDrive(drives_.drive());  // if the drive is not ready, the previous one stays
    });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::contents) box_->setDrives(drives_.entries());
    if (property == Property::contents || property == Property::value) box_->setCurrentDrive(drives_.drive());
  }

 private:
  DriveList& drives_;
  DriveBox* box_;
};

}  // namespace

std::unique_ptr<Binder> bindDriveList(DriveList& drives, QWidget* parent) {
  return makeBinder<DriveBinder>(drives, parent);
}

}  // namespace plimo
