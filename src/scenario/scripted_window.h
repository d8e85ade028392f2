// A window that nobody sees, on a screen of the scenario's size. It has no frame: outer and inner sizes are the same.
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

// The captions that something bore since they were last asked for.
class Captions {
 public:
  void bear(const std::string& caption) {
    if (borne_.empty() || borne_.back() != caption) borne_.push_back(caption);
  }
  // True when it bore this one; from then on only its present one is remembered.
  bool takeBorne(const std::string& caption);
  const std::vector<std::string>& borne() const { return borne_; }

 private:
  std::vector<std::string> borne_;
};

class CaptionObserver : public ControlObserver {
 public:
  explicit CaptionObserver(Control& control) : control_(control) { control_.addObserver(*this); }
  ~CaptionObserver() override { control_.removeObserver(*this); }
  void propertyChanged(Property property) override {
    if (property == Property::caption) captions.bear(control_.caption());
  }

  Captions captions;

 private:
  Control& control_;
};

class ScriptedWindow : public FormHost {
 public:
  explicit ScriptedWindow(const Size& screen) : screen_(screen) {}

  // The form as designed, before it loads; it must not outlive this window.
  void attach(Form& form);
  // The screen has another size now.
  void screenChanged();
  // The user drags the frame. A maximised window is a normal one from then on.
  void userResize(Size size);

  Captions captions;
  // The pop-up menu shown last, until that is taken note of; null for none.
  const Menu* popUpShown = nullptr;

  void show(Form& form) override { fit(form); }
  void unload(Form&) override {}
  void captionChanged(Form& form) override { captions.bear(form.caption()); }
  void stateChanged(Form& form) override { fit(form); }
  void resizeTo(Form& form, double width, double height) override;
  void focusChanged(Form&) override {}
  void popUp(Form&, Menu& menu) override { popUpShown = &menu; }
  void pause(Form&, std::chrono::milliseconds) override {}

 private:
  // Gives a window that shows the size that goes with its state.
  void fit(Form& form);

  const Size& screen_;
  Form* form_ = nullptr;
  Size normal_;
};

}  // namespace plimo::scenario
