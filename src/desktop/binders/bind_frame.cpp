// Frames, which are cards with a title, and the outlines around the lists.
#include <QGroupBox>
#include <QPainter>
#include <algorithm>

#include "desktop/binders/binder.h"
#include "desktop/theme/theme.h"

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
    painter.setPen(QPen(theme().border, 1));
    painter.setBrush(theme().card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2 * radius(), 2 * radius());
    painter.setFont(titleFont());
    painter.setPen(theme().accent);
    const int line = painter.fontMetrics().height();
    // Above the first control, in line with the one that stands farthest to the left.
    QPoint first(width(), height());
    for (const QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      first = QPoint(std::min(first.x(), child->x()), std::min(first.y(), child->y()));
    }
    const QRect place(first.x(), std::max(0, (first.y() - line) * 3 / 5), width() - 2 * first.x(), line);
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
  ObserverScope observerScope_{control(), *this};
};

class ShapeWidget : public QWidget {
 public:
  ShapeWidget(Shape& model, QWidget* parent) : QWidget(parent), model_(model) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
  }

  // Only the outline is there: what lies within is not covered, and need not be painted twice.
  void cutOut() {
    const int width = model_.borderWidth();
    const bool rectangle = model_.outline() == Shape::Outline::rectangle;
    const QRegion whole(rect(), rectangle ? QRegion::Rectangle : QRegion::Ellipse);
    const QRect inner = rect().adjusted(width, width, -width, -width);
    setMask(whole.subtracted(QRegion(inner, rectangle ? QRegion::Rectangle : QRegion::Ellipse)));
  }

 protected:
  void resizeEvent(QResizeEvent*) override { cutOut(); }

  void paintEvent(QPaintEvent*) override {
    const Control* list = framedList();
    if (list == nullptr) return;
    QPainter painter(this);
    const ListColours colours = listColours(list->foreColour(), list->backColour());
    const bool hasKeyboard = model_.form().focus() == list;
    painter.fillRect(rect(), qcolor(hasKeyboard ? colours.mark : colours.quiet));
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
  void changed(Property property) override {
    if (property == Property::value) static_cast<ShapeWidget*>(widget())->cutOut();
    widget()->update();
  }

 private:
  ObserverScope observerScope_{control(), *this};
};

}  // namespace

std::unique_ptr<Binder> bindFrame(Control& frame, QWidget* parent) {
  return std::make_unique<FrameBinder>(frame, parent);
}

std::unique_ptr<Binder> bindShape(Shape& shape, QWidget* parent) {
  return std::make_unique<ShapeBinder>(shape, parent);
}

}  // namespace plimo
