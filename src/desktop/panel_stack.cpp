#include "desktop/panel_stack.h"

#include <algorithm>

namespace plimo {

namespace {

bool meet(const Geometry& one, const Geometry& other) {
  return one.left < other.left + other.width && other.left < one.left + one.width &&
         one.top < other.top + other.height && other.top < one.top + one.height;
}

}  // namespace

class PanelStack::Watch : public ControlObserver {
 public:
  Watch(PanelStack& stack, Control& frame) : stack_(stack), frame_(frame) { frame_.addObserver(*this); }
  ~Watch() override { frame_.removeObserver(*this); }
  void propertyChanged(Property property) override {
    if (property == Property::visible) stack_.told(frame_);
  }

 private:
  PanelStack& stack_;
  Control& frame_;
};

PanelStack::PanelStack(Form& form) : form_(form) {
  for (Control* control : form.controls()) {
    if (control->kind() == ControlKind::frame) watches_.push_back(std::make_unique<Watch>(*this, *control));
  }
}

PanelStack::~PanelStack() = default;

bool PanelStack::covered(const Control& frame) const {
  const auto panel = std::find_if(open_.begin(), open_.end(), [&](const Open& open) { return open.frame == &frame; });
  return panel != open_.end() && std::any_of(panel + 1, open_.end(), [&frame](const Open& later) {
           return meet(frame.geometry(), later.frame->geometry());
         });
}

void PanelStack::told(const Control& frame) {
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
  before_ = nullptr;
  changed_ = true;
}

// Another panel may have been opened from it: that one's way back goes on to where this one's leads.
void PanelStack::closed(std::vector<Open>::iterator panel) {
  const Open gone = *panel;
  open_.erase(panel);
  for (Open& open : open_) {
    if (open.before != nullptr && open.before->container() == gone.frame) open.before = gone.before;
  }
  before_ = gone.before;
  changed_ = true;
}

}  // namespace plimo
