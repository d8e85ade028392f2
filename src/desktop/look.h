// The one visual language of the desktop: colours in a light and a dark scheme, spacing, fonts, and the few shapes that
// every widget draws alike.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QString>
#include <string_view>

#include "desktop/contrast.h"

class QApplication;

namespace plimo {

struct Look {
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

inline constexpr int radius = 6;   // of cards and buttons, pixels
inline constexpr int spacing = 8;  // between neighbours

// Chooses the scheme from the desktop's palette and gives it to the application.
void installLook(QApplication& application);
const Look& look();

QColor qcolor(Rgb colour);
Rgb rgbOf(const QColor& colour);
QString qstring(std::string_view text);  // bytes that are no text become replacement characters
std::string bytesOf(const QString& text);

// A tooltip that is shown as it stands: a file's name in it must not be taken for markup.
QString plainTip(const QString& text);

QFont titleFont();
QFont smallFont();

// A picture of the program's own, by its name in art/ without the ending.
QIcon artIcon(const QString& name);
// With its aspect kept it stands at the left.
void paintArt(QPainter& painter, const QString& name, const QRectF& place, Qt::AspectRatioMode mode);
bool artExists(const QString& name);

void paintRing(QPainter& painter, const QRectF& around, double corner);

// The caption in the place, in as many lines as fit; in a smaller size, and at last shortened, where it does not fit.
void paintCaption(QPainter& painter, const QRect& place, const QString& caption, Qt::Alignment alignment);

}  // namespace plimo
