// The one visual language of the desktop: colours in a light and a dark scheme, spacing, fonts, and the few shapes that
// every widget draws alike.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QSize>
#include <QString>
#include <string_view>

#include "desktop/theme/contrast.h"

class QApplication;

namespace plimo {

struct Theme {
  bool dark = false;
  QColor window;  // behind everything
  QColor card;    // panels, boxes, the player
  QColor border;  // around cards and fields
  QColor field;   // what is typed or chosen in
  QColor text;
  QColor quiet;     // text that may be overlooked
  QColor accent;    // ticks, sliders, the default button
  QColor onAccent;  // text on it
  QColor focus;     // the ring around what has the keyboard
  QColor button;
  QColor buttonHover;
  QColor buttonPressed;
};

// Chooses the scheme from the desktop's palette and gives it to the application, with letters and boxes that fit on the
// screen.
void installTheme(QApplication& application);
const Theme& theme();

// What stands on a window shrinks with it below the size it was designed for; then the widgets' fonts follow, and each
// hears of it by its font's change.
void setWindowSize(QSize size);
// From 0.5 to 1.
double windowScale();
// Pixels in a window of the designed size, in the window as it is; never less than 1.
int scaled(int pixels);
// The same for menus and boxes, which follow the screen and not the window.
int scaledForBoxes(int pixels);
// A style sheet with its sizes in pixels scaled likewise.
QString scaledSheet(QString sheet);
// The application's style sheet for what stands on the window; empty where it is right as it is.
QString windowSheet();

inline int radius() { return scaled(6); }   // of cards and buttons, pixels
inline int spacing() { return scaled(8); }  // between neighbours

QColor qcolor(Rgb colour);
Rgb rgbOf(const QColor& colour);
QString qstring(std::string_view text);  // bytes that are no text become replacement characters
std::string bytesOf(const QString& text);

// A tooltip that is shown as it stands: a file's name in it must not be taken for markup.
QString plainTip(const QString& text);

QFont windowFont();
QFont smallFont();
// These two grow with a window larger than designed, so that what is read fills its place.
QFont titleFont();
QFont readingFont();

// A picture of the program's own, by its name in art/ without the ending.
QIcon artIcon(const QString& name);
// With its aspect kept it stands at the left. Returns the place that it has taken.
QRectF paintArt(QPainter& painter, const QString& name, const QRectF& place, Qt::AspectRatioMode mode);
bool artExists(const QString& name);

void paintRing(QPainter& painter, const QRectF& around, double corner);

// The caption in the place, in as many lines as fit; in a smaller size, and at last shortened, where it does not fit.
void paintCaption(QPainter& painter, const QRect& place, const QString& caption, Qt::Alignment alignment);

}  // namespace plimo
