// The menus of a form: its menu bar and its pop-up menus.
#pragma once

#include <QKeySequence>
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
  // A shortcut of an item in the menu bar, which it shows. It acts in the whole window while the item can be chosen.
  void setShortcut(const Menu& item, const QKeySequence& keys);
  // Only shows it: the item's command can be called with it, but not through the menu.
  void showShortcut(const Menu& item, const QKeySequence& keys);
  // Applies the visibility of the menus and items.
  void refresh();

 private:
  class Item;

  QMenuBar* bar_ = nullptr;
  std::vector<std::unique_ptr<Item>> items_;
  std::map<const Menu*, QMenu*> menus_;
  std::map<const Menu*, QAction*> actions_;  // of the items
};

}  // namespace plimo
