// From the form's twips to the window's logical pixels and back.
#pragma once

#include <QRect>
#include <cmath>

#include "controls/control.h"

namespace plimo {

inline constexpr double twipsPerPixel = 15;

inline int pixels(double twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }
inline double twips(int pixelCount) { return pixelCount * twipsPerPixel; }

// Edges are rounded, not sizes, so that what touches in twips touches in pixels.
inline QRect pixelRect(const Geometry& geometry) {
  const int left = pixels(geometry.left);
  const int top = pixels(geometry.top);
  return {left, top, pixels(geometry.left + geometry.width) - left, pixels(geometry.top + geometry.height) - top};
}

}  // namespace plimo
