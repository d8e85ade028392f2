// The colours of the desktop program in a light and a dark scheme.
#pragma once

#include <QColor>

class QApplication;

namespace plimo {

struct Theme {
  bool dark = false;
  QColor window;  // behind everything
  QColor card;    // panels, boxes, the player
  QColor border;  // around cards and fields
  QColor field;   // of input fields and lists
  QColor text;
  QColor quiet;     // secondary text, disabled controls
  QColor accent;    // ticks, sliders, the default button
  QColor onAccent;  // text on the accent colour
  QColor focus;     // the ring around the widget with the keyboard focus
  QColor button;
  QColor buttonHover;
  QColor buttonPressed;
};

// Chooses the scheme by the lightness of the desktop's palette and sets the application's palette, style and font,
// scaled to fit the screen. To be called once, before the first window.
void installTheme(QApplication& application);
const Theme& theme();

}  // namespace plimo
