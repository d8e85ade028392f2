// The menus of a form: its menu bar and its pop-up menus.
#pragma once

#include <QPointer>
#include <map>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "controls/menu.h"

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace plimo {

class BoundMenus {
 public:
  // The widgets belong to the window.
  BoundMenus(Form& form, QWidget& window);
  ~BoundMenus();
  BoundMenus(const BoundMenus&) = delete;
  BoundMenus& operator=(const BoundMenus&) = delete;

  QMenuBar* bar() const { return bar_; }  // null if the form has no menus
  // Pixels. The bar keeps its height while all its menus are hidden, so that the controls below it do not move.
  int barHeight() const;
  QMenu* popUpOf(const Menu& menu) const;
  // Applies the visibility of the menus and items.
  void refresh();

 private:
  class Item;

  QMenuBar* bar_ = nullptr;
  std::vector<std::unique_ptr<Item>> items_;
  std::map<const Menu*, QMenu*> menus_;
};

}  // namespace plimo
