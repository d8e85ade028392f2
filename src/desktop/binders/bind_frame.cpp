#include <QGroupBox>
#include <QPainter>
#include <algorithm>

#include "desktop/binders/binder.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
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
};

}  // namespace

std::unique_ptr<Binder> bindFrame(Control& frame, QWidget* parent) { return makeBinder<FrameBinder>(frame, parent); }

}  // namespace plimo
