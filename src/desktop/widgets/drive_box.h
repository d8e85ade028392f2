// A box that drops down the drives: each with an icon, its letter and kind, and its root folder.
#pragma once

#include <QComboBox>
#include <span>

#include "controls/drive_list.h"

namespace plimo {

class DriveBox : public QComboBox {
 public:
  explicit DriveBox(QWidget* parent);

  void setDrives(std::span<const DriveList::Entry> drives);
  // 0 for none.
  void setCurrentDrive(char letter);
  // 0 if there is no such row.
  char driveAt(int row) const;

 protected:
  // The arrow keys open the box.
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace plimo
