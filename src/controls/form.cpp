#include "controls/form.h"

#include <algorithm>

namespace plimo {

Control* Form::find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [name](const Control* control) { return control->name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Form::show() {
  if (visible_ || !loaded_) return;
  visible_ = true;
  if (host_ != nullptr) host_->show(*this);
}

void Form::unload() {
  if (!loaded_) return;
  loaded_ = false;
  visible_ = false;
  if (host_ != nullptr) host_->unload(*this);
  if (unloaded) unloaded();
}

void Form::setCaption(std::string_view caption) {
  if (caption == caption_) return;
  caption_ = caption;
  if (host_ != nullptr) host_->captionChanged(*this);
}

void Form::setWindowState(WindowState state) {
  if (state == state_) return;
  state_ = state;
  if (host_ != nullptr) host_->stateChanged(*this);
}

void Form::setSize(double width, double height) {
  if (host_ != nullptr) host_->resizeTo(*this, width, height);
}

void Form::designSize(double width, double height) {
  width_ = scaleWidth_ = width;
  height_ = scaleHeight_ = height;
}

void Form::setFocus(Control* control) {
  if (control == focus_) return;
  focus_ = control;
  if (host_ != nullptr) host_->focusChanged(*this);
}

void Form::popUp(Menu& menu) {
  if (host_ != nullptr) host_->popUp(*this, menu);
}

void Form::pause(std::chrono::milliseconds time) {
  if (host_ != nullptr) host_->pause(*this, time);
}

void Form::runLoad() {
  loaded_ = true;
  if (load) dispatcher_.run(load);
}

void Form::windowResized(double scaleWidth, double scaleHeight, double width, double height) {
  width_ = width;
  height_ = height;
  if (scaleWidth == scaleWidth_ && scaleHeight == scaleHeight_) return;
  scaleWidth_ = scaleWidth;
  scaleHeight_ = scaleHeight;
  if (resize) dispatcher_.run(resize);
}

void Form::userMouseMove() {
  if (mouseMove) dispatcher_.run(mouseMove);
}

void Form::userClose() {
  unload();
  if (terminate) dispatcher_.run(terminate);
}

}  // namespace plimo
