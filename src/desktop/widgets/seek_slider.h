// The slider for the position in a song, which is a time to assistive tools.
#pragma once

#include <QSlider>

namespace plimo {

class SeekSlider : public QSlider {
 public:
  explicit SeekSlider(QWidget* parent);

  // Seconds; a length of 0 is unknown. Shows the position, unless the user holds the handle. Assistive tools are not
  // notified: the position changes all the time.
  void showTime(double position, double duration);
  double duration() const { return duration_; }
  double seconds() const;  // at the handle

  // Moves to the time, as the user does.
  void seek(double seconds);

 protected:
  bool event(QEvent* event) override;

 private:
  void takePosition();

  double duration_ = 0;
};

}  // namespace plimo
