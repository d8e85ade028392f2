#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

#include "desktop/binder.h"
#include "desktop/look.h"

namespace plimo {

namespace {

// A text in lines of a length that is easily read; it scrolls where it finds no room.
class LabelWidget : public QScrollArea {
 public:
  explicit LabelWidget(QWidget* parent) : QScrollArea(parent), text_(new QLabel) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text_->setAutoFillBackground(false);
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
    constexpr double smallest = 0.86;
    QFont font = this->font();
    const double usual = font.pointSizeF();
    // A little smaller rather than cut off.
    for (double size = 1; size >= smallest; size -= 0.07) {
      font.setPointSizeF(usual * size);
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

  QLabel* text_;
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
  Observing observing_{control(), *this};
};

}  // namespace

std::unique_ptr<Binder> bindLabel(Control& label, QWidget* parent) {
  return std::make_unique<LabelBinder>(label, parent);
}

}  // namespace plimo
