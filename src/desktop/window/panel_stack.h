// The panels of a form that are open, one over the other.
#pragma once

#include <memory>
#include <vector>

#include "controls/form.h"

namespace plimo {

class PanelStack {
 public:
  // Watches the form's frames; the form must outlive it.
  explicit PanelStack(Form& form);
  ~PanelStack();

  // The panel that was opened last, or asked for again; null where none is open.
  const Control* top() const { return open_.empty() ? nullptr : open_.back().frame; }
  // True for a panel over which another one has been opened: it waits until that one is closed. The first run's two
  // panels stand side by side.
  bool covered(const Control& frame) const;

  // True where panels have been opened or closed since the keyboard was told of it last.
  bool changed() const { return changed_; }
  void clearChanged() { changed_ = false; }
  // What had the keyboard before the panel was opened that has been closed last; null where none has since.
  Control* focusBefore() const { return focusBefore_; }

 private:
  class FrameObserver;
  struct Open {
    const Control* frame;
    Control* focusBefore;  // had the keyboard
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
