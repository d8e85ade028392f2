#include <QPushButton>

#include "desktop/binders/binder.h"
#include "desktop/theme/contrast.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/return_activates_button.h"

namespace plimo {

namespace {

// A button of this colour is painted in the theme's colours.
constexpr Colour plain = 0xFFFFFF;

class ButtonBinder : public Binder {
 public:
  ButtonBinder(Control& control, QWidget* parent)
      : Binder(control, new ReturnActivatesButton<QPushButton>(parent)), button_(static_cast<QPushButton*>(widget())) {
    QObject::connect(button_, &QPushButton::clicked, button_, [this] {
      if (acceptsClicks()) this->control().userClick();
    });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::caption) button_->setText(qstring(control().caption()));
    if (property == Property::colours) applyColour();
  }

 private:
  void applyColour() {
    QPalette palette;
    if (const Colour colour = control().backColour(); colour != plain) {
      palette.setColor(QPalette::Button, qcolor(rgbOf(colour)));
      palette.setColor(QPalette::ButtonText, qcolor(readableOn(rgbOf(colour))));
    }
    button_->setPalette(palette);
  }

  QPushButton* button_;
};

}  // namespace

std::unique_ptr<Binder> bindButton(Control& button, QWidget* parent) {
  return makeBinder<ButtonBinder>(button, parent);
}

}  // namespace plimo
