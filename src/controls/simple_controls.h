// The simple controls: everything on a window but its lists and menus.
#pragma once

#include <string>
#include <string_view>

#include "controls/control.h"

namespace plimo {

class CommandButton : public Control {
 public:
  CommandButton(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::commandButton, name, container) {}
  void userClick() override;

  // True for the button that the Escape key presses in its panel.
  bool cancels() const { return cancels_; }
  void setCancels() { cancels_ = true; }

 private:
  bool cancels_ = false;
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::checkBox, name, container) {}
  // 0 unticked, 1 ticked, 2 greyed.
  int value() const { return value_; }
  bool ticked() const { return value_ == 1; }
  void setValue(int value);
  // Flips it and raises its click.
  void userClick() override;

 protected:
  void replay(ControlObserver& observer) override;

 private:
  int value_ = 0;
};

// One of a group: those with the same container. Choosing one clears the others.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::optionButton, name, container) {}
  bool value() const { return value_; }
  void setValue(bool value);
  // Chooses it and raises its click.
  void userClick() override;

 protected:
  void replay(ControlObserver& observer) override;

 private:
  bool value_ = false;
};

// A picture that can be clicked. Pictures are named; the shell draws them.
class Picture : public Control {
 public:
  Picture(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::picture, name, container) {}
  const std::string& picture() const { return picture_; }
  void setPicture(std::string_view picture);
  // Stretched over the whole control, regardless of its aspect ratio. Set once, at the design.
  bool stretched() const { return stretched_; }
  void setStretched() { stretched_ = true; }

 protected:
  void replay(ControlObserver& observer) override;

 private:
  std::string picture_;
  bool stretched_ = false;
};

class Label : public Control {
 public:
  Label(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::label, name, container) {}
};

class Frame : public Control {
 public:
  Frame(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::frame, name, container) {}
};

// A drawn outline.
class Shape : public Control {
 public:
  Shape(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::shape, name, container) {}
  enum class Outline { rectangle, oval };
  Outline outline() const { return outline_; }
  int borderWidth() const { return borderWidth_; }  // pixels
  void draw(Outline outline, int borderWidth);

 private:
  Outline outline_ = Outline::oval;
  int borderWidth_ = 1;
};

class Slider : public Control {
 public:
  Slider(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::slider, name, container) {}
  static constexpr int minimum = 0;
  static constexpr int maximum = 255;
  static constexpr int smallStep = 1;
  static constexpr int largeStep = 5;
  int value() const { return value_; }
  // Clamped to minimum and maximum.
  void setValue(int value);

  Event change;  // the value has changed, by any means
  Event scroll;  // while it is dragged
  // `click` (of every control): the track was clicked
  Event keyUp;  // a key that moved it was released

  void userDrag(int value);
  void userClickAt(int value);
  void userKey(int value);

 protected:
  void replay(ControlObserver& observer) override;

 private:
  void userMove(int value, const Event& cause);

  int value_ = 0;
};

// The area of the window in which the player is shown. The platform does the playing.
class MediaPlayerControl : public Control {
 public:
  MediaPlayerControl(Form& form, std::string_view name, Control* container = nullptr)
      : Control(form, ControlKind::mediaPlayer, name, container) {}
  Event newStream;
  // The player has opened a song and knows its length.
  void playerNewStream() { raise(newStream); }
};

class Timer : public Control {
 public:
  Timer(Form& form, std::string_view name) : Control(form, ControlKind::timer, name) {}
  // Milliseconds; 0: idle.
  int interval() const { return interval_; }
  void setInterval(int milliseconds);
  bool running() const { return enabled() && interval_ > 0; }
  Event timer;
  // One interval has passed.
  void elapsed() { raise(timer); }

 protected:
  void replay(ControlObserver& observer) override;

 private:
  int interval_ = 0;
};

}  // namespace plimo
