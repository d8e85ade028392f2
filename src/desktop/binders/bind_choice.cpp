// Check boxes and option buttons.
#include <QCheckBox>
#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>

#include "desktop/binders/binder.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

// The box's or circle's, pixels.
int markSide() { return scaled(16); }

// Both are painted alike: a mark and a caption of as many lines as it takes.
void paintChoice(QAbstractButton& button, double corner, bool round) {
  QPainter painter(&button);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF mark(2.5, (button.height() - markSide()) / 2.0, markSide(), markSide());
  const bool on = button.isChecked();
  const QColor accent = button.isEnabled() ? theme().accent : theme().quiet;
  painter.setPen(QPen(on ? accent : theme().quiet, 1.5));
  painter.setBrush(on ? accent : button.underMouse() ? theme().buttonHover : theme().field);
  painter.drawRoundedRect(mark, corner, corner);
  if (on && round) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme().onAccent);
    painter.drawEllipse(mark.center(), markSide() * 0.2, markSide() * 0.2);
  } else if (on) {
    painter.setPen(QPen(theme().onAccent, markSide() / 8.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&mark](double x, double y) {
      return QPointF(mark.left() + markSide() * x, mark.top() + markSide() * y);
    };
    painter.drawPolyline(QPolygonF{{at(0.24, 0.52), at(0.43, 0.72), at(0.78, 0.3)}});
  }
  painter.setPen(button.isEnabled() ? theme().text : theme().quiet);
  const QRect textPlace = button.rect().adjusted(markSide() + 2 + spacing(), 0, -2, 0);
  paintCaption(painter, textPlace, button.text(), Qt::AlignLeft | Qt::AlignVCenter);
  if (button.hasFocus()) paintFocusRing(painter, button.rect(), 4);
}

// The model flips, not the widget: it follows the control's value.
class CheckBoxWidget : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void nextCheckState() override {}
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }
  void paintEvent(QPaintEvent*) override { paintChoice(*this, scaled(4), false); }
};

class OptionWidget : public QRadioButton {
 public:
  OptionWidget(OptionButton& model, QWidget* parent) : QRadioButton(parent), model_(model) { setAutoExclusive(false); }

 protected:
  void nextCheckState() override {}
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }
  void paintEvent(QPaintEvent*) override { paintChoice(*this, markSide() / 2.0, true); }

  // The arrow keys choose among the group.
  void keyPressEvent(QKeyEvent* event) override {
    const bool forward = event->key() == Qt::Key_Down || event->key() == Qt::Key_Right;
    const bool back = event->key() == Qt::Key_Up || event->key() == Qt::Key_Left;
    if (!forward && !back) {
      QRadioButton::keyPressEvent(event);
      return;
    }
    Control* before = nullptr;
    bool passed = false;
    for (Control* other : model_.form().controls()) {
      if (other->kind() != ControlKind::optionButton || other->container() != model_.container()) continue;
      if (other == &model_) {
        passed = true;
      } else if (other->usable() && !passed) {
        before = other;
      } else if (other->usable() && forward) {
        other->userClick();
        return;
      }
    }
    if (back && before != nullptr) before->userClick();
  }

 private:
  OptionButton& model_;
};

template <class Model, class Widget>
class ChoiceBinder : public Binder {
 public:
  ChoiceBinder(Model& model, Widget* choice) : Binder(model, choice), model_(model), choice_(choice) {
    choice_->setFocusPolicy(Qt::StrongFocus);
    choice_->setAttribute(Qt::WA_Hover);
    QObject::connect(choice_, &QAbstractButton::clicked, choice_, [&model] { model.userClick(); });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::caption) choice_->setText(qstring(model_.caption()));
    if (property == Property::value) choice_->setChecked(model_.value() != 0);
  }

 private:
  Model& model_;
  Widget* choice_;
};

}  // namespace

std::unique_ptr<Binder> bindCheckBox(CheckBox& box, QWidget* parent) {
  return makeBinder<ChoiceBinder<CheckBox, CheckBoxWidget>>(box, new CheckBoxWidget(parent));
}

std::unique_ptr<Binder> bindOptionButton(OptionButton& option, QWidget* parent) {
  return makeBinder<ChoiceBinder<OptionButton, OptionWidget>>(option, new OptionWidget(option, parent));
}

}  // namespace plimo
