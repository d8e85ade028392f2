// Connects one control of the model with one widget: it applies the control's changes to the widget, and passes the
// user's input to the control's user-input API. One file for each kind of control, bind_*.cpp.
#pragma once

#include <QWidget>
#include <memory>
#include <utility>

#include "controls/drive_list.h"
#include "controls/folder_list.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"

namespace plimo {

class PlaylistPlayer;

// The widget has the control's name as its object name, so that tools and tests find it. It belongs to its parent.
class Binder : public ControlObserver {
 public:
  Binder(Control& control, QWidget* widget);
  ~Binder() override;

  Control& control() const { return control_; }
  QWidget* widget() const { return widget_; }

  void propertyChanged(Property property) override;
  // Shows or hides the widget as the control says, and only if `allowed`. Deferred until the window is painted, so that
  // a control hidden and shown again in one handler neither flickers nor loses the keyboard focus.
  void applyVisible(bool allowed);
  // The widget that takes the keyboard focus for this control; null for none.
  virtual QWidget* focusTarget() const { return widget_; }

 protected:
  // False while a handler runs: a click that does not come from the mouse or the keyboard, but from an assistive tool,
  // is not held back by a box or a progress panel.
  bool acceptsClicks() const { return !control_.form().dispatcher().busy(); }
  // Applies a property that only this kind of control has, or that its widget shows in its own way.
  virtual void changed(Property property) = 0;

 private:
  Control& control_;
  QWidget* widget_;
};

// Makes a binder and applies the control's present state to it.
template <class T, class... Arguments>
std::unique_ptr<Binder> makeBinder(Arguments&&... arguments) {
  auto binder = std::make_unique<T>(std::forward<Arguments>(arguments)...);
  binder->control().addObserver(*binder);
  return binder;
}

std::unique_ptr<Binder> bindButton(Control& button, QWidget* parent);
std::unique_ptr<Binder> bindCheckBox(CheckBox& box, QWidget* parent);
std::unique_ptr<Binder> bindOptionButton(OptionButton& option, QWidget* parent);
std::unique_ptr<Binder> bindPicture(Picture& picture, QWidget* parent);
std::unique_ptr<Binder> bindLabel(Control& label, QWidget* parent);
std::unique_ptr<Binder> bindFrame(Control& frame, QWidget* parent);
std::unique_ptr<Binder> bindShape(Shape& shape, QWidget* parent);
std::unique_ptr<Binder> bindSlider(Slider& slider, QWidget* parent);
std::unique_ptr<Binder> bindList(ListBox& list, QWidget* parent);
std::unique_ptr<Binder> bindDriveList(DriveList& drives, QWidget* parent);
std::unique_ptr<Binder> bindFolderList(FolderList& folders, QWidget* parent);
std::unique_ptr<Binder> bindPlayer(Control& control, PlaylistPlayer& player, QWidget* parent);

}  // namespace plimo
