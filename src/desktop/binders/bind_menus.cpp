#include "desktop/binders/bind_menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"

namespace plimo {

class BoundMenus::Item : public ControlObserver {
 public:
  Item(Menu& menu, QAction* action) : menu_(menu), action_(action) {
    action_->setObjectName(qstring(menu.name()));
    menu_.addObserver(*this);
  }
  ~Item() override { menu_.removeObserver(*this); }

  void propertyChanged(Property property) override {
    if (property == Property::caption) action_->setText(qstring(menu_.caption()));
    if (property == Property::enabled) action_->setEnabled(menu_.enabled());
  }

  void applyVisible() {
    if (action_->isVisible() != menu_.visible()) action_->setVisible(menu_.visible());
  }

 private:
  Menu& menu_;
  QAction* action_;
};

BoundMenus::BoundMenus(Form& form, QWidget& window) {
  for (Control* control : form.controls()) {
    if (control->kind() != ControlKind::menu) continue;
    auto& menu = static_cast<Menu&>(*control);
    QAction* action = nullptr;
    if (menu.role() == Menu::Role::item) {
      action = menus_.at(menu.owner())->addAction(QString());
      actions_[&menu] = action;
      QObject::connect(action, &QAction::triggered, action, [&menu] {
        if (!menu.form().dispatcher().busy()) menu.userClick();
      });
    } else {
      auto* shown = new QMenu(&window);
      shown->setObjectName(qstring(menu.name()) + QStringLiteral("Menu"));
      shown->setAccessibleName(qstring(menu.accessibleName()));
      menus_[&menu] = shown;
      if (menu.role() == Menu::Role::popUp) continue;
      if (bar_ == nullptr) {
        bar_ = new QMenuBar(&window);
        bar_->setNativeMenuBar(false);
      }
      action = bar_->addMenu(shown);
    }
    items_.push_back(std::make_unique<Item>(menu, action));
  }
}

BoundMenus::~BoundMenus() = default;

int BoundMenus::barHeight() const {
  const int padding = scaled(14);
  return bar_ == nullptr ? 0 : bar_->fontMetrics().height() + padding;
}

QMenu* BoundMenus::popUpOf(const Menu& menu) const {
  const auto found = menus_.find(&menu);
  return found == menus_.end() ? nullptr : found->second;
}

void BoundMenus::setShortcut(const Menu& item, const QKeySequence& keys) {
  actions_.at(&item)->setShortcut(keys);
  actions_.at(&item)->setShortcutVisibleInContextMenu(true);
}

void BoundMenus::showShortcut(const Menu& item, const QKeySequence& keys) {
  setShortcut(item, keys);
  actions_.at(&item)->setShortcutContext(Qt::WidgetShortcut);  // no widget has this action
}

void BoundMenus::refresh() {
  for (const auto& item : items_) item->applyVisible();
}

}  // namespace plimo
