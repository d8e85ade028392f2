// Ties one control to one widget: hears of the control's changes, and hands what the user does to the control's own
// doors. One file for each kind, bind_*.cpp.
#pragma once

#include <QWidget>
#include <memory>

#include "controls/drive_list.h"
#include "controls/folder_list.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"

namespace plimo {

class MpvPlayer;

// The widget of a control has the control's name as its object name, so that tools and tests find it.
class Binder : public ControlObserver {
 public:
  Binder(Control& control, QWidget* widget);
  ~Binder() override = default;

  Control& control() const { return control_; }
  QWidget* widget() const { return widget_; }

  void propertyChanged(Property property) override;
  // Shows or hides the widget as the control says, and only where `allowed`. Put off until the window is painted, so
  // that a control hidden and shown again in one handler neither flickers nor loses the keyboard.
  void applyVisible(bool allowed);
  // The widget that takes the keyboard for this control; null for none.
  virtual QWidget* focusTarget() const { return widget_; }

 protected:
  // What a kind of control has in addition to what all have.
  virtual void changed(Property property) = 0;

 private:
  Control& control_;
  QWidget* widget_;
};

// What a control is to someone who cannot see where it stands; empty where its caption says it.
QString accessibleNameOf(const Control& control);

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
std::unique_ptr<Binder> bindPlayer(Control& control, MpvPlayer& player, QWidget* parent);

// Takes an observer away from its control when it goes; the last member of a binder.
class ObserverScope {
 public:
  ObserverScope(Control& control, ControlObserver& observer) : control_(control), observer_(observer) {
    control_.addObserver(observer_);
  }
  ObserverScope(const ObserverScope&) = delete;
  ObserverScope& operator=(const ObserverScope&) = delete;
  ~ObserverScope() { control_.removeObserver(observer_); }

 private:
  Control& control_;
  ControlObserver& observer_;
};

}  // namespace plimo
