#include "desktop/theme/scaling.h"

#include <QApplication>
#include <QFontInfo>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace plimo {

namespace {

// Factors from the designed sizes to those painted.
struct Scales {
  QFont usual;         // the desktop's own
  double room = 1;     // in the main window, without an upper limit
  double screen = 1;   // menus and dialogs
  double window = 1;   // the contents of the main window
  double reading = 1;  // titles and long texts in it
};

Scales& scales() {
  static Scales now;
  return now;
}

QFont usualFont(double scale) {
  QFont font = scales().usual;
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * scale))));
  }
  return font;
}

// The scale at which what is designed for a screen of 1024 x 768 fits into the size. The designed height is that of the
// screen without a title bar.
double roomIn(QSize size, double largest) {
  constexpr double designedWidth = 1024;
  constexpr double designedHeight = 740;
  constexpr double smallest = 0.5;
  return std::clamp(std::min(size.width() / designedWidth, size.height() / designedHeight), smallest, largest);
}

// The largest fonts, in pixels, that the window is designed for. A larger one is honoured in menus and dialogs, and in
// the window as far as it has room: otherwise captions would be elided and texts would not fit.
constexpr double largestUsual = 16;
constexpr double largestReading = 13.5;  // before titles and long texts are enlarged

double fitting(double largest, double room) {
  return std::min(1.0, largest * room / std::max(1, QFontInfo(scales().usual).pixelSize()));
}

// The same at the scale of the window, which is at most 1.
double fittingScale() {
  const Scales& now = scales();
  return std::min(now.window, fitting(largestUsual, std::max(now.room, now.window)));
}

}  // namespace

void scaleToScreen() {
  Scales& now = scales();
  now.usual = QApplication::font();
  const QScreen* screen = QGuiApplication::primaryScreen();
  now.screen = screen == nullptr ? 1 : roomIn(screen->size(), 1);
  now.window = now.screen;
  QApplication::setFont(usualFont(now.screen));
}

void setWindowSize(QSize size) {
  // In steps, so that a window that is being resized does not change its fonts with every pixel.
  constexpr double steps = 32;
  scales().room = roomIn(size, 4);
  scales().window = std::floor(roomIn(size, 1) * steps) / steps;
  constexpr double largest = 1.5;
  scales().reading = std::floor(roomIn(size, largest) * steps) / steps;
}

double windowScale() { return scales().window; }

int scaled(int pixels) { return std::max(1, static_cast<int>(std::lround(pixels * windowScale()))); }

int scaledForBoxes(int pixels) { return std::max(1, static_cast<int>(std::lround(pixels * scales().screen))); }

QFont windowFont() { return usualFont(fittingScale()); }

QFont smallFont() { return usualFont(0.9 * fittingScale()); }

QFont titleFont() {
  QFont font = usualFont(1.25 * scales().reading * fitting(largestReading, 1));
  font.setBold(true);
  return font;
}

QFont readingFont() { return usualFont(7.0 / 6 * scales().reading * fitting(largestReading, 1)); }

}  // namespace plimo
