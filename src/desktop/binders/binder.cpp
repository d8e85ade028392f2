#include "desktop/binders/binder.h"

#include "desktop/theme/strings.h"
#include "desktop/theme/units.h"

namespace plimo {

Binder::Binder(Control& control, QWidget* widget) : control_(control), widget_(widget) {
  widget_->setObjectName(qstring(control.name()));
  widget_->setMouseTracking(true);
  widget_->hide();
}

Binder::~Binder() { control_.removeObserver(*this); }

void Binder::propertyChanged(Property property) {
  switch (property) {
    case Property::geometry:
      widget_->setGeometry(pixelRect(control_.geometry()));
      break;
    case Property::enabled:
      widget_->setEnabled(control_.enabled());
      break;
    case Property::tooltip:
      widget_->setToolTip(plainTip(shownText(control_.tooltip()).trimmed()));
      break;
    case Property::accessibleName:
      widget_->setAccessibleName(qstring(control_.accessibleName()));
      break;
    default:
      break;
  }
  changed(property);
}

void Binder::applyVisible(bool allowed) {
  const bool shown = allowed && control_.visible();
  if (widget_->isHidden() == shown) widget_->setVisible(shown);
}

}  // namespace plimo
