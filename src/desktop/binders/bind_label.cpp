#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "desktop/binders/binder.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

// Lines farther apart than the toolkit sets them, as one reads them with ease.
class TextBlock : public QLabel {
 public:
  using QLabel::QLabel;

  int heightForWidth(int width) const override { return setLines(width, nullptr); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    setLines(width(), &painter);
  }

 private:
  // Returns their height; paints them where there is a painter.
  int setLines(int width, QPainter* painter) const {
    const QFontMetricsF metrics(font());
    const double step = std::max(metrics.height(), 1.35 * QFontInfo(font()).pixelSize());
    double y = 0;
    for (const QString& paragraph : text().split(QLatin1Char('\n'))) {
      QTextLayout layout(QString(paragraph).remove(QLatin1Char('\r')), font());
      layout.beginLayout();
      bool some = false;
      for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y + (step - metrics.height()) / 2));
        y += step;
        some = true;
      }
      layout.endLayout();
      if (!some) y += step / 2;  // between paragraphs
      if (painter != nullptr) layout.draw(painter, QPointF());
    }
    return static_cast<int>(std::ceil(y));
  }
};

// A text in lines of a length that is easily read; it scrolls where it finds no room.
class LabelWidget : public QScrollArea {
 public:
  explicit LabelWidget(QWidget* parent) : QScrollArea(parent), text_(new TextBlock) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    text_->setTextFormat(Qt::PlainText);
    text_->setMouseTracking(true);
    setWidget(text_);
    text_->setAutoFillBackground(false);
  }

  void setText(const QString& text) {
    text_->setText(text);
    arrange();
  }

 protected:
  void resizeEvent(QResizeEvent*) override { arrange(); }

 private:
  void arrange() {
    constexpr int longestLine = 88;  // average letters
    constexpr double smallest = 0.8;
    QFont font = readingFont();
    const double usual = QFontInfo(font).pixelSize();
    // A line is no heading: where the place has but one, the letters are those of the controls around it.
    const bool oneLine = height() < 3 * usual;
    if (oneLine) font = windowFont();
    // A little smaller rather than cut off.
    const double largest = QFontInfo(font).pointSizeF();
    for (double size = 1; size >= smallest; size -= 0.04) {
      font.setPointSizeF(largest * size);
      text_->setFont(font);
      if (text_->heightForWidth(width()) <= height()) break;
    }
    const int longest = text_->fontMetrics().averageCharWidth() * longestLine;
    const auto heightFor = [this](int width) { return text_->heightForWidth(width); };
    int width = std::min(this->width(), longest);
    bool scrolls = heightFor(width) > height();
    if (scrolls) {
      width = std::min(this->width() - verticalScrollBar()->sizeHint().width(), longest);
      scrolls = heightFor(width) > height();
    }
    text_->resize(width, std::max(heightFor(width), scrolls ? 0 : height()));
    setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
  }

  TextBlock* text_;
};

class LabelBinder : public Binder {
 public:
  LabelBinder(Control& label, QWidget* parent)
      : Binder(label, new LabelWidget(parent)), text_(static_cast<LabelWidget*>(widget())) {}

 protected:
  void changed(Property property) override {
    if (property != Property::caption) return;
    text_->setText(qstring(control().caption()));
    text_->setAccessibleName(qstring(control().caption()).trimmed());
  }

 private:
  LabelWidget* text_;
  ObserverScope observerScope_{control(), *this};
};

}  // namespace

std::unique_ptr<Binder> bindLabel(Control& label, QWidget* parent) {
  return std::make_unique<LabelBinder>(label, parent);
}

}  // namespace plimo
