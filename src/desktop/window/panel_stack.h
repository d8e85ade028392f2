// The open panels of a form, from the bottom to the top.
#pragma once

#include <memory>
#include <vector>

#include "controls/form.h"

namespace plimo {

class PanelStack {
 public:
  // Observes the form's frames; the form must outlive it.
  explicit PanelStack(Form& form);
  ~PanelStack();

  // The panel that was opened, or requested again, last; null if none is open.
  const Control* top() const { return open_.empty() ? nullptr : open_.back().frame; }
  // True for a panel that a panel opened later overlaps: it is hidden until that one is closed. The two panels of the
  // first run are side by side.
  bool covered(const Control& frame) const;

  // True for a control, not in a panel, that would be seen in part behind an open one.
  bool hides(const Control& control) const;

  // True if panels have been opened or closed since the last clearChanged().
  bool changed() const { return changed_; }
  void clearChanged() { changed_ = false; }
  // The control that had the focus before the panel closed last was opened; null if a panel has been opened since.
  Control* focusBefore() const { return focusBefore_; }

 private:
  class FrameObserver;
  struct Open {
    const Control* frame;
    Control* focusBefore;  // had the focus when the panel was opened
  };
  void visibilityChanged(const Control& frame);
  void closed(std::vector<Open>::iterator panel);

  Form& form_;
  std::vector<Open> open_;
  Control* focusBefore_ = nullptr;
  bool changed_ = false;
  std::vector<std::unique_ptr<FrameObserver>> observers_;
};

}  // namespace plimo
