// Sizes and fonts: both shrink below the size that the window was designed for, so that nothing is cut off.
#pragma once

#include <QFont>
#include <QSize>

namespace plimo {

// Takes over the application's font and scales it to the primary screen. To be called once, before the first window.
void scaleToScreen();

// Sets the scale of the main window's contents by the window's size. The caller sets the widgets' fonts; widgets adapt
// to the new scale in their font change event.
void setWindowSize(QSize size);
// From 0.5 to 1.
double windowScale();

// Converts pixels as designed to pixels at the window's present scale; at least 1.
int scaled(int pixels);
// The same for menus and dialogs.
int scaledForBoxes(int pixels);

inline int radius() { return scaled(6); }   // of cards and buttons, pixels
inline int spacing() { return scaled(8); }  // between neighbours, pixels

QFont windowFont();
QFont smallFont();
// These two also grow with a window larger than designed, so that long texts fill their area.
QFont titleFont();
QFont readingFont();

}  // namespace plimo
