// A window without a display, on a screen of the scenario's size. It has no frame: outer and inner sizes are equal.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/menu.h"

namespace plimo::scenario {

// In the form's units.
struct Size {
  double width = 0;
  double height = 0;
};

// The captions that a control or window has had since the last successful or failed `expect was`.
class CaptionHistory {
 public:
  void record(const std::string& caption) {
    if (seen_.empty() || seen_.back() != caption) seen_.push_back(caption);
  }
  // True if this caption was seen. Forgets all captions but the current one.
  bool takeSeen(const std::string& caption);
  const std::vector<std::string>& seen() const { return seen_; }

 private:
  std::vector<std::string> seen_;
};

class CaptionObserver : public ControlObserver {
 public:
  explicit CaptionObserver(Control& control) : control_(control) { control_.addObserver(*this); }
  ~CaptionObserver() override { control_.removeObserver(*this); }
  void propertyChanged(Property property) override {
    if (property == Property::caption) captions.record(control_.caption());
  }

  CaptionHistory captions;

 private:
  Control& control_;
};

class ScriptedWindow : public FormHost {
 public:
  explicit ScriptedWindow(const Size& screen) : screen_(screen) {}

  // Called before the form loads. The form must not outlive this window.
  void attach(Form& form);
  // Call after the screen's size has changed.
  void screenChanged();
  // The user drags the frame; a maximised window becomes a normal one.
  void userResize(Size size);

  CaptionHistory captions;
  // The pop-up menu shown since the last expectation about it; null if none.
  const Menu* popUpShown = nullptr;

  void show(Form& form) override { fit(form); }
  void unload(Form&) override {}
  void captionChanged(Form& form) override { captions.record(form.caption()); }
  void stateChanged(Form& form) override { fit(form); }
  void resizeTo(Form& form, double width, double height) override;
  void focusChanged(Form&) override {}
  void popUp(Form&, Menu& menu) override { popUpShown = &menu; }
  void pause(Form&, std::chrono::milliseconds) override {}

 private:
  // Applies the size that belongs to the window's state, if it is visible.
  void fit(Form& form);

  const Size& screen_;
  Form* form_ = nullptr;
  Size normal_;
};

}  // namespace plimo::scenario
