// The panel over the window that shows how far a scan, a copy or a deletion is.
#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace plimo {

class ElidedLabel;

class ProgressPanel : public QWidget {
  Q_OBJECT

 public:
  // Hidden at first.
  explicit ProgressPanel(QWidget* window);

  // Shows the panel over the whole window. `cancellable` gives it a Cancel button, which the Escape key presses.
  void begin(const QString& title, bool cancellable);
  // `item` is what is worked on, `amount` how far the work is. `part` from 0 to 1; less than 0 if it is unknown.
  void update(const QString& item, const QString& amount, double part);
  bool cancelled() const { return cancelled_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* cancel_;  // the first child: assistive tools come to it first
  QLabel* title_;
  ElidedLabel* item_;
  ElidedLabel* amount_;
  QProgressBar* bar_;
  QVBoxLayout* rows_;  // its area is painted as a card
  bool cancelled_ = false;
};

}  // namespace plimo
