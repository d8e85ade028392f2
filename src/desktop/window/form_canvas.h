// The ground of a window, on which its controls stand: headings over the lists, a hint where the player will be, and
// the colour that the sliders mix. It only reads the models.
#pragma once

#include <QByteArray>
#include <QWidget>

#include "controls/form.h"
#include "controls/list_box.h"

namespace plimo {

class FormCanvas : public QWidget {
 public:
  FormCanvas(const Form& form, QWidget* parent);
  // Paints anew where what it shows has changed.
  void refresh(bool compact);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // A column of the main window: its list (or the list in its place), its strip's handles, and a word for its rows.
  struct Column {
    const char* list;
    const char* otherList;
    const char* closedHandle;
    const char* openHandle;
    const char* title;
    const char* oneRow;
    const char* manyRows;
  };

  void paintHeading(QPainter& painter, const Column& column) const;
  void paintFoot(QPainter& painter) const;
  void paintBrand(QPainter& painter) const;
  void paintBand(QPainter& painter) const;
  void paintMixedColour(QPainter& painter) const;
  QByteArray paintFingerprint() const;
  const Control* shown(const char* name) const;
  QRect placeOf(const char* name) const;

  const Form& form_;
  bool compact_ = false;
  QByteArray painted_;  // what it showed last
};

}  // namespace plimo
