#include "desktop/window/panel_stack.h"

#include <algorithm>

namespace plimo {

namespace {

bool overlap(const Geometry& one, const Geometry& other) {
  return one.left < other.left + other.width && other.left < one.left + one.width &&
         one.top < other.top + other.height && other.top < one.top + one.height;
}

}  // namespace

class PanelStack::FrameObserver : public ControlObserver {
 public:
  FrameObserver(PanelStack& stack, Control& frame) : stack_(stack), frame_(frame) { frame_.addObserver(*this); }
  ~FrameObserver() override { frame_.removeObserver(*this); }
  void propertyChanged(Property property) override {
    if (property == Property::visible) stack_.visibilityChanged(frame_);
  }

 private:
  PanelStack& stack_;
  Control& frame_;
};

PanelStack::PanelStack(Form& form) : form_(form) {
  for (Control* control : form.controls()) {
    if (control->kind() == ControlKind::frame) observers_.push_back(std::make_unique<FrameObserver>(*this, *control));
  }
}

PanelStack::~PanelStack() = default;

bool PanelStack::covered(const Control& frame) const {
  const auto panel = std::find_if(open_.begin(), open_.end(), [&](const Open& open) { return open.frame == &frame; });
  return panel != open_.end() && std::any_of(panel + 1, open_.end(), [&frame](const Open& later) {
           return overlap(frame.geometry(), later.frame->geometry());
         });
}

bool PanelStack::hides(const Control& control) const {
  return std::any_of(open_.begin(), open_.end(),
                     [&control](const Open& open) { return overlap(control.geometry(), open.frame->geometry()); });
}

void PanelStack::visibilityChanged(const Control& frame) {
  const auto panel = std::find_if(open_.begin(), open_.end(), [&](const Open& open) { return open.frame == &frame; });
  if (!frame.visible()) {
    if (panel != open_.end()) closed(panel);
    return;
  }
  if (panel == open_.end()) {
    open_.push_back({&frame, form_.focus()});
  } else {
    std::rotate(panel, panel + 1, open_.end());
  }
  focusBefore_ = nullptr;
  changed_ = true;
}

// A panel that was opened from the closed one returns the focus to where the closed one would have.
void PanelStack::closed(std::vector<Open>::iterator panel) {
  const Open closedPanel = *panel;
  open_.erase(panel);
  for (Open& open : open_) {
    if (open.focusBefore != nullptr && open.focusBefore->container() == closedPanel.frame)
      open.focusBefore = closedPanel.focusBefore;
  }
  focusBefore_ = closedPanel.focusBefore;
  changed_ = true;
}

}  // namespace plimo
