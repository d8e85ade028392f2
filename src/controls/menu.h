// A menu of the menu bar, a pop-up menu, or an item of one of them.
#pragma once

#include <string_view>

#include "controls/control.h"

namespace plimo {

// A menu of the bar has no owner, nor has a pop-up menu, which is shown only on request. Items of a pop-up menu
// can be clicked whenever it is shown.
class Menu : public Control {
 public:
  enum class Role { bar, popUp, item };
  Menu(Form& form, std::string_view name, Role role, Menu* owner = nullptr)
      : Control(form, ControlKind::menu, name), role_(role), owner_(owner) {}

  Role role() const { return role_; }
  Menu* owner() const { return owner_; }
  bool showing() const override {
    return role_ == Role::popUp || (visible() && (owner_ == nullptr || owner_->showing()));
  }

 private:
  Role role_;
  Menu* owner_;
};

}  // namespace plimo
