// The folders on the way to one folder, and those in it. A double click or the Return key opens a folder.
#pragma once

#include <QListWidget>

#include "controls/folder_list.h"

namespace plimo {

class FolderView : public QListWidget {
 public:
  FolderView(FolderList& model, QWidget* parent);

  // Shows the model's listing.
  void fill();

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void addFolder(const std::string& path, int depth, bool ancestor);
  void open(const QListWidgetItem* item);

  FolderList& model_;
};

}  // namespace plimo
