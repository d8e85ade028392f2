#include <QPainter>

#include "desktop/binder.h"
#include "desktop/look.h"
#include "desktop/pressable.h"

namespace plimo {

namespace {

// Designed in this colour, a button wears the window's look; any other colour is its own.
constexpr Colour plain = 0xFFFFFF;

class ButtonWidget : public Pressable {
 public:
  explicit ButtonWidget(QWidget* parent) : Pressable(parent) {
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
    QColor face = look().button;
    QColor ink = look().text;
    QColor edge = look().border;
    if (own_ != plain) {
      const Rgb back = plimo::rgbOf(own_);
      face = qcolor(back);
      ink = qcolor(readableOn(back));
      edge = qcolor(mix(back, readableOn(back), 0.25));
    } else if (isEnabled() && underMouse()) {
      face = look().buttonHover;
    }
    if (isDown()) face = face.darker(115);
    if (!isEnabled()) ink = look().quiet;
    painter.setPen(QPen(edge, 1));
    painter.setBrush(face);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius(), radius());
    painter.setPen(ink);
    QRect textPlace = rect().adjusted(3, 1, -3, -1);
    if (isDown()) textPlace.translate(0, 1);
    paintCaption(painter, textPlace, text(), Qt::AlignCenter);
    if (hasFocus()) paintRing(painter, rect(), radius());
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
  Observing observing_{control(), *this};
};

}  // namespace

std::unique_ptr<Binder> bindButton(Control& button, QWidget* parent) {
  return std::make_unique<ButtonBinder>(button, parent);
}

}  // namespace plimo
