#include "desktop/binders/binder.h"

#include "desktop/theme/strings.h"
#include "desktop/theme/units.h"

namespace plimo {

Binder::Binder(Control& control, QWidget* widget) : control_(control), widget_(widget) {
  widget_->setObjectName(qstring(control.name()));
  widget_->setAccessibleName(accessibleNameOf(control));
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
      widget_->setToolTip(plainTip(qstring(control_.tooltip()).trimmed()));
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

QString accessibleNameOf(const Control& control) {
  struct Entry {
    std::string_view control;
    const char16_t* name;
  };
  static constexpr Entry entries[] = {
      {"List2", u"Artists"},
      {"List1", u"Scratch playlist"},
      {"List4", u"Final playlist"},
      {"List6", u"Final playlist"},
      {"List5", u"Drives to scan during startup"},
      {"List7", u"Drives to scan"},
      {"Picture1", u"Show the artist commands"},
      {"Picture4", u"Fold the artist commands"},
      {"Picture2", u"Show the song commands"},
      {"Picture5", u"Fold the song commands"},
      {"Picture3", u"Show the playlist commands"},
      {"Picture6", u"Fold the playlist commands"},
      {"Picture7", u"Play all songs on the final playlist"},
      {"Image1", u"Plimo!"},
      {"MediaPlayer1", u"Player"},
      {"Slider1", u"Red"},
      {"Slider2", u"Green"},
      {"Slider3", u"Blue"},
      {"Drive1", u"Winamp's drive"},
      {"Dir1", u"Winamp's folder"},
      {"Drive2", u"Drive to copy to"},
      {"Dir2", u"Folder to copy to"},
  };
  for (const Entry& entry : entries) {
    if (entry.control == control.name()) return QString::fromUtf16(entry.name);
  }
  return {};
}

}  // namespace plimo
