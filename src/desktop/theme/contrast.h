// Contrast between colours, by their relative luminance.
#pragma once

#include <QColor>

#include "controls/control.h"

namespace plimo {

struct Rgb {
  int red = 0;  // each 0 to 255
  int green = 0;
  int blue = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

inline constexpr Rgb black{0, 0, 0};
inline constexpr Rgb white{255, 255, 255};

Rgb rgbOf(Colour colour);
Rgb rgbOf(const QColor& colour);
QColor qcolor(Rgb colour);

// 0 for black to 1 for white.
double luminance(Rgb colour);

// 1 (the same) to 21 (black and white).
double contrast(Rgb one, Rgb other);

// `share` of the second colour, 0 to 1.
Rgb mix(Rgb first, Rgb second, double share);

// Black or white, whichever has the higher contrast on the background.
Rgb readableOn(Rgb background);

// The wanted colour if it has the contrast on the background, else the nearest mix with black or white that has it,
// else black or white.
Rgb readable(Rgb wanted, Rgb background, double wantedContrast);

}  // namespace plimo
