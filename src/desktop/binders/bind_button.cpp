#include <QPainter>

#include "desktop/binders/binder.h"
#include "desktop/theme/contrast.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/return_activates_button.h"

namespace plimo {

namespace {

// Designed in this colour, a button wears the window's look; any other colour is its own.
constexpr Colour plain = 0xFFFFFF;

class ButtonWidget : public ReturnActivatesButton<QAbstractButton> {
 public:
  explicit ButtonWidget(QWidget* parent) : ReturnActivatesButton<QAbstractButton>(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
  }

  void setOwnColour(Colour colour) {
    own_ = colour;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor face = theme().button;
    QColor ink = theme().text;
    QColor edge = theme().border;
    if (own_ != plain) {
      const Rgb back = plimo::rgbOf(own_);
      face = qcolor(back);
      ink = qcolor(readableOn(back));
      edge = qcolor(mix(back, readableOn(back), 0.25));
    } else if (isEnabled() && underMouse()) {
      face = theme().buttonHover;
    }
    if (isDown()) face = face.darker(115);
    if (!isEnabled()) ink = theme().quiet;
    painter.setPen(QPen(edge, 1));
    painter.setBrush(face);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius(), radius());
    painter.setPen(ink);
    QRect textPlace = rect().adjusted(3, 1, -3, -1);
    if (isDown()) textPlace.translate(0, 1);
    paintCaption(painter, textPlace, text(), Qt::AlignCenter);
    if (hasFocus()) paintFocusRing(painter, rect(), radius());
  }

 private:
  Colour own_ = plain;
};

class ButtonBinder : public Binder {
 public:
  ButtonBinder(Control& control, QWidget* parent)
      : Binder(control, new ButtonWidget(parent)), button_(static_cast<ButtonWidget*>(widget())) {
    QObject::connect(button_, &QAbstractButton::clicked, button_, [&control] { control.userClick(); });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::caption) button_->setText(qstring(control().caption()));
    if (property == Property::colours) button_->setOwnColour(control().backColour());
  }

 private:
  ButtonWidget* button_;
};

}  // namespace

std::unique_ptr<Binder> bindButton(Control& button, QWidget* parent) {
  return makeBinder<ButtonBinder>(button, parent);
}

}  // namespace plimo
