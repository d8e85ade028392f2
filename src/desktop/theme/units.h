// Conversion between the form's twips and the window's logical pixels.
#pragma once

#include <QRect>
#include <cmath>

#include "controls/control.h"

namespace plimo {

inline constexpr double twipsPerPixel = 15;

inline int pixels(double twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }
inline double twips(int pixelCount) { return pixelCount * twipsPerPixel; }

// Edges are rounded, not sizes, so that controls that touch in twips touch in pixels.
inline QRect pixelRect(const Geometry& geometry) {
  const int left = pixels(geometry.left);
  const int top = pixels(geometry.top);
  return {left, top, pixels(geometry.left + geometry.width) - left, pixels(geometry.top + geometry.height) - top};
}

}  // namespace plimo
