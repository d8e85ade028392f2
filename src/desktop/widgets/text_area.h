// A text in lines of a length that is easily read; it scrolls if it does not fit.
#pragma once

#include <QScrollArea>

namespace plimo {

class TextBlock;

class TextArea : public QScrollArea {
 public:
  explicit TextArea(QWidget* parent);

  // Plain text; its line breaks separate paragraphs.
  void setText(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void layOut();

  TextBlock* text_;
};

}  // namespace plimo
