#include "controls/simple_controls.h"

#include <algorithm>

#include "controls/form.h"

namespace plimo {

void CommandButton::userClick() {
  form().setFocus(this);
  Control::userClick();
}

void CheckBox::setValue(int value) {
  if (value == value_) return;
  value_ = value;
  notify(Property::value);
}

void CheckBox::userClick() {
  form().setFocus(this);
  setValue(value_ == 1 ? 0 : 1);
  Control::userClick();
}

void CheckBox::replay(ControlObserver& observer) {
  Control::replay(observer);
  observer.propertyChanged(Property::value);
}

void OptionButton::setValue(bool value) {
  if (value == value_) return;
  value_ = value;
  if (value) {
    for (Control* other : form().controls()) {
      if (other != this && other->kind() == ControlKind::optionButton && other->container() == container()) {
        static_cast<OptionButton*>(other)->setValue(false);
      }
    }
  }
  notify(Property::value);
}

void OptionButton::userClick() {
  form().setFocus(this);
  setValue(true);
  Control::userClick();
}

void OptionButton::replay(ControlObserver& observer) {
  Control::replay(observer);
  observer.propertyChanged(Property::value);
}

void Picture::setPicture(std::string_view picture) {
  if (picture == picture_) return;
  picture_ = picture;
  notify(Property::picture);
}

void Picture::replay(ControlObserver& observer) {
  observer.propertyChanged(Property::picture);
  Control::replay(observer);
}

void Shape::draw(Outline outline, int borderWidth) {
  outline_ = outline;
  borderWidth_ = borderWidth;
  notify(Property::value);
}

void Slider::setValue(int value) {
  value = std::clamp(value, minimum, maximum);
  if (value == value_) return;
  value_ = value;
  notify(Property::value);
}

void Slider::userMove(int value, const Event& cause) {
  form().setFocus(this);
  const int old = value_;
  setValue(value);
  if (value_ != old) raise(change);
  raise(cause);
}

void Slider::userDrag(int value) { userMove(value, scroll); }
void Slider::userClickAt(int value) { userMove(value, click); }
void Slider::userKey(int value) { userMove(value, keyUp); }

void Slider::replay(ControlObserver& observer) {
  Control::replay(observer);
  observer.propertyChanged(Property::value);
}

void Timer::setInterval(int milliseconds) {
  if (milliseconds == interval_) return;
  interval_ = milliseconds;
  notify(Property::interval);
}

void Timer::replay(ControlObserver& observer) {
  Control::replay(observer);
  observer.propertyChanged(Property::interval);
}

}  // namespace plimo
