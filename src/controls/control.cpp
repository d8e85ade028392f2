#include "controls/control.h"

#include <algorithm>

#include "controls/form.h"

namespace plimo {

Control::Control(Form& form, ControlKind kind, std::string_view name, Control* container)
    : form_(form), kind_(kind), name_(name), container_(container) {
  form.enlist(*this);
}

template <class T>
void Control::change(T& member, const T& value, Property property) {
  if (member == value) return;
  member = value;
  notify(property);
}

// Notifies even if nothing changes: a panel that is opened again is raised to the front.
void Control::setVisible(bool visible) {
  visible_ = visible;
  notify(Property::visible);
}

void Control::setEnabled(bool enabled) { change(enabled_, enabled, Property::enabled); }
void Control::setCaption(std::string_view caption) { change(caption_, std::string(caption), Property::caption); }
void Control::setTooltip(std::string_view tooltip) { change(tooltip_, std::string(tooltip), Property::tooltip); }
void Control::setAccessibleName(std::string_view name) {
  change(accessibleName_, std::string(name), Property::accessibleName);
}
void Control::setGeometry(const Geometry& geometry) { change(geometry_, geometry, Property::geometry); }
void Control::setForeColour(Colour colour) { change(foreColour_, colour, Property::colours); }
void Control::setBackColour(Colour colour) { change(backColour_, colour, Property::colours); }

bool Control::showing() const { return visible_ && (container_ == nullptr || container_->showing()); }

void Control::addObserver(ControlObserver& observer) {
  observers_.push_back(&observer);
  replay(observer);
}

void Control::removeObserver(ControlObserver& observer) { std::erase(observers_, &observer); }

void Control::notify(Property property) {
  for (ControlObserver* observer : observers_) observer->propertyChanged(property);
}

void Control::replay(ControlObserver& observer) {
  for (const Property property : {Property::geometry, Property::accessibleName, Property::caption, Property::tooltip,
                                  Property::colours, Property::enabled, Property::visible}) {
    observer.propertyChanged(property);
  }
}

void Control::raise(const std::function<void()>& handler) {
  if (handler) form_.dispatcher().run(handler);
}

void Control::userClick() { raise(click); }

void Control::userMouseMove() { raise(mouseMove); }

}  // namespace plimo
