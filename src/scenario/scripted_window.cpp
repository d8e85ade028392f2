#include "scenario/scripted_window.h"

#include <algorithm>

namespace plimo::scenario {

bool CaptionHistory::takeSeen(const std::string& caption) {
  const bool found = std::find(seen_.begin(), seen_.end(), caption) != seen_.end();
  if (seen_.size() > 1) seen_.erase(seen_.begin(), seen_.end() - 1);
  return found;
}

void ScriptedWindow::attach(Form& form) {
  form_ = &form;
  normal_ = {form.width(), form.height()};
  captions.record(form.caption());
  form.setHost(this);
}

void ScriptedWindow::screenChanged() {
  if (form_ != nullptr) fit(*form_);
}

void ScriptedWindow::userResize(Size size) {
  normal_ = size;
  form_->windowStateChanged(WindowState::normal);
  fit(*form_);
}

void ScriptedWindow::resizeTo(Form& form, double width, double height) {
  normal_ = {width, height};
  fit(form);
}

void ScriptedWindow::fit(Form& form) {
  if (!form.visible() || form.windowState() == WindowState::minimised) return;
  const Size size = form.windowState() == WindowState::maximised ? screen_ : normal_;
  form.windowResized(size.width, size.height, size.width, size.height);
}

}  // namespace plimo::scenario
