// What is shown over the window while a scan, a copy or a deletion is at work.
#pragma once

#include <QString>
#include <QWidget>

class QPushButton;

namespace plimo {

class ProgressPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ProgressPanel(QWidget* window);

  // Appears, over the whole window. `cancellable` gives it a Cancel button.
  void begin(const QString& title, bool cancellable);
  // One line for what is being done, one for how far it is. `part` from 0 to 1; less than 0 where it cannot be told.
  void tell(const QString& what, const QString& howFar, double part);
  bool cancelled() const { return cancelled_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QRect card() const;
  int textHeight() const;  // title, two lines and the bar

  QPushButton* cancel_;
  QString title_;
  QString what_;
  QString howFar_;
  double part_ = -1;
  int animationStep_ = 0;  // moves the bar where the part cannot be told
  bool cancelled_ = false;
};

}  // namespace plimo
