// Frames, which are cards with a title, and the outlines around the lists.
#include <QGroupBox>
#include <QPainter>

#include "desktop/binder.h"
#include "desktop/look.h"

namespace plimo {

namespace {

// A group box for those who hear the window; drawn as a card for those who see it.
class CardWidget : public QGroupBox {
 public:
  explicit CardWidget(QWidget* parent) : QGroupBox(parent) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look().border, 1));
    painter.setBrush(look().card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2 * radius, 2 * radius);
    painter.setFont(titleFont());
    painter.setPen(look().accent);
    const int line = painter.fontMetrics().height();
    const QRect place(2 * spacing, spacing, width() - 4 * spacing, line);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title());
  }
};

class FrameBinder : public Binder {
 public:
  FrameBinder(Control& frame, QWidget* parent)
      : Binder(frame, new CardWidget(parent)), card_(static_cast<CardWidget*>(widget())) {}

 protected:
  void changed(Property property) override {
    if (property == Property::caption) card_->setTitle(qstring(control().caption()));
  }

 private:
  CardWidget* card_;
  Observing observing_{control(), *this};
};

class ShapeWidget : public QWidget {
 public:
  ShapeWidget(Shape& model, QWidget* parent) : QWidget(parent), model_(model) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Control* list = framedList();
    if (list == nullptr) return;
    QPainter painter(this);
    const int width = model_.borderWidth();
    const ListColours colours = listColours(list->foreColour(), list->backColour());
    const bool hasKeyboard = model_.form().focus() == list;
    const double half = width / 2.0;
    painter.setPen(
        QPen(hasKeyboard ? look().focus : qcolor(colours.quiet), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const QRectF outline = QRectF(rect()).adjusted(half, half, -half, -half);
    if (model_.outline() == Shape::Outline::rectangle) {
      painter.drawRect(outline);
    } else {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.drawEllipse(outline);
    }
  }

 private:
  // The list that the shape lies upon.
  const Control* framedList() const {
    for (const Control* control : model_.form().controls()) {
      if (control->kind() != ControlKind::listBox || !control->showing()) continue;
      const QWidget* widget = parentWidget()->findChild<QWidget*>(qstring(control->name()), Qt::FindDirectChildrenOnly);
      if (widget != nullptr && widget->geometry() == geometry()) return control;
    }
    return nullptr;
  }

  Shape& model_;
};

class ShapeBinder : public Binder {
 public:
  ShapeBinder(Shape& shape, QWidget* parent) : Binder(shape, new ShapeWidget(shape, parent)) {}

 protected:
  void changed(Property) override { widget()->update(); }

 private:
  Observing observing_{control(), *this};
};

}  // namespace

std::unique_ptr<Binder> bindFrame(Control& frame, QWidget* parent) {
  return std::make_unique<FrameBinder>(frame, parent);
}

std::unique_ptr<Binder> bindShape(Shape& shape, QWidget* parent) {
  return std::make_unique<ShapeBinder>(shape, parent);
}

}  // namespace plimo
