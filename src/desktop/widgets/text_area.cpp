#include "desktop/widgets/text_area.h"

#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "desktop/theme/scaling.h"

namespace plimo {

// The text with a larger line spacing than a QLabel has, and half a line between paragraphs.
class TextBlock : public QLabel {
 public:
  using QLabel::QLabel;

  int heightForWidth(int width) const override { return layOutLines(width, nullptr); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    layOutLines(width(), &painter);
  }

 private:
  // Returns the text's height in pixels; paints it if a painter is given.
  int layOutLines(int width, QPainter* painter) const {
    const QFontMetricsF metrics(font());
    const double step = std::max(metrics.height(), 1.35 * QFontInfo(font()).pixelSize());
    double y = 0;
    for (const QString& paragraph : text().split(QLatin1Char('\n'))) {
      QTextLayout layout(QString(paragraph).remove(QLatin1Char('\r')), font());
      layout.beginLayout();
      bool empty = true;
      for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y + (step - metrics.height()) / 2));
        y += step;
        empty = false;
      }
      layout.endLayout();
      if (empty) y += step / 2;
      if (painter != nullptr) layout.draw(painter, QPointF());
    }
    return static_cast<int>(std::ceil(y));
  }
};

TextArea::TextArea(QWidget* parent) : QScrollArea(parent), text_(new TextBlock) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setAutoFillBackground(false);
  text_->setTextFormat(Qt::PlainText);
  text_->setMouseTracking(true);
  setWidget(text_);
  text_->setAutoFillBackground(false);
}

void TextArea::setText(const QString& text) {
  text_->setText(text);
  layOut();
}

void TextArea::resizeEvent(QResizeEvent*) { layOut(); }

void TextArea::layOut() {
  constexpr int longestLine = 88;  // average characters
  constexpr double smallest = 0.8;
  QFont font = readingFont();
  const double usual = QFontInfo(font).pixelSize();
  // A single line is a caption for a control, and has the same font as the controls.
  if (height() < 3 * usual) font = windowFont();
  // A slightly smaller font is better than a scroll bar.
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

}  // namespace plimo
