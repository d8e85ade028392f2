// Colours that can be told apart, by the relative luminance of their light.
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

// Black or white, whichever reads better on the background.
Rgb readableOn(Rgb background);

// The wanted colour where it has the contrast on the background, else the nearest mix of it with black or white that
// has it, else that black or white itself.
Rgb readable(Rgb wanted, Rgb background, double wantedContrast);

// What a list paints, all of it from the two colours that the user can choose. Text and background are his, whatever
// their contrast; everything else can be told from them.
struct ListColours {
  Rgb text;
  Rgb background;
  Rgb quiet;  // outlines of boxes and of the current row without the keyboard
  Rgb mark;   // ticks, and the current row with the keyboard
  Rgb selectedText;
  Rgb selectedBackground;
  Rgb currentBackground;  // of the current row where it is not selected
};

ListColours listColours(Colour text, Colour background);

}  // namespace plimo
